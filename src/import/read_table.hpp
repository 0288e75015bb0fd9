#pragma once

#include <optional>
#include <string>
#include <vector>

#include "checks/finding.hpp"
#include "import/table.hpp"
#include "import/table_header.hpp"

/// How the bytes of a table are read.
struct TableForm {
  std::string encoding;        ///< empty: UTF-8, or what a byte order mark says
  char separator = 0;          ///< 0: the one that the header uses
  ColumnChoices columns = {};  ///< by which a header is known
};

/// Reads the table; "-" is standard input. Nothing on failure: then either `error` says why the
/// file cannot be read, or `findings` what is wrong in it.
std::optional<Table> read_table(const std::string& path, const TableForm& form, std::string& error,
                                std::vector<Finding>& findings);

/// The table in a text.
std::optional<Table> table_of_text(std::string_view bytes, const TableForm& form,
                                   std::vector<Finding>& findings);
