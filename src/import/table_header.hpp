#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "checks/finding.hpp"
#include "import/column_names.hpp"
#include "import/table.hpp"

/// The user's own names of columns: column and folded header.
using ColumnChoices = std::vector<std::pair<TableColumn, std::string>>;

/// Reads "item=Datei,start=Beginn". Nothing, with `error`, when a name is no column's.
std::optional<ColumnChoices> read_column_choices(const std::string& text, std::string& error);

/// A column that a schedule has no key for.
struct OtherColumn {
  int64_t column;
  std::string name;  ///< as a sidecar writes it
};

/// Which column of a table is which. Columns count from 1.
struct TableHeader {
  int64_t row = 0;
  std::array<int64_t, 12> columns{};  ///< by TableColumn; 0: the table has none
  int duration_unit = 0;              ///< what its bare numbers count, in seconds; 0: not said
  int item_duration_unit = 0;
  std::vector<OtherColumn> others;

  int64_t column_of(TableColumn column) const { return columns.at(static_cast<size_t>(column)); }
};

/// Whether one of the upper rows is a header.
bool has_table_header(const std::vector<CsvRow>& rows, const ColumnChoices& choices);

/// The first of the upper rows that names the column of the items and another one. Nothing when
/// there is none; what is wrong with the header goes into `findings`.
std::optional<TableHeader> find_table_header(const Table& table, const ColumnChoices& choices,
                                             std::vector<Finding>& findings);
