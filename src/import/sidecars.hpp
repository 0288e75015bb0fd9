#pragma once

#include <string>
#include <vector>

#include "checks/finding.hpp"
#include "import/table.hpp"
#include "import/table_header.hpp"

/// A sidecar that the table makes.
struct MadeSidecar {
  std::string path;
  std::string text;
};

/// The sidecars for the items of the table: the cells of the columns that a schedule has no key
/// for. A sidecar is written in the folder below `folder` that the item's path names, as far as
/// there is one. A sidecar that this program did not write stays as it is, with a finding. `source`
/// is the table's name.
std::vector<MadeSidecar> sidecars_of_table(const Table& table, const TableHeader& header,
                                           const std::string& folder, const std::string& source,
                                           std::vector<Finding>& findings);

/// Replaces the sidecar if it is not as it should be. False, with errno set, when that fails.
bool write_sidecar(const MadeSidecar& sidecar);
