#pragma once

#include <optional>
#include <string>
#include <vector>

#include "checks/finding.hpp"
#include "import/made_schedule.hpp"
#include "import/row_times.hpp"

/// What the command line says of a table.
struct TableOptions {
  ColumnChoices columns;
  std::optional<DateOrder> dates;
  std::string type;  ///< of the schedule when no row names it
  CellDate today;
};

/// How the rows are read. Nothing, with a finding, when the type of the schedule is not known.
/// Table and header must outlive the result.
std::optional<TableRules> rules_of_table(const Table& table, const TableHeader& header,
                                         const TableOptions& options,
                                         std::vector<Finding>& findings);

/// Makes a schedule of the rows of a table. What is wrong goes into `findings`; a row with an error
/// makes nothing.
MadeSchedule read_table_rows(const TableRules& rules, std::vector<Finding>& findings);
