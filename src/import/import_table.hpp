#pragma once

#include <optional>
#include <string>
#include <vector>

#include "checks/finding.hpp"
#include "import/import_options.hpp"
#include "import/sidecars.hpp"

/// What a table makes.
struct ImportedTable {
  std::string schedule;  ///< the text of the file
  std::vector<MadeSidecar> sidecars;
};

/// The schedule that the table makes, and its sidecars. Nothing is written yet. What is wrong is in
/// `findings`, at the table's rows; with an error there is nothing. When the table cannot be read,
/// `error` says why.
std::optional<ImportedTable> import_table(const ImportCommand& command, FileFindings& findings,
                                          std::string& error);
