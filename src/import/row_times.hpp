#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "checks/finding.hpp"
#include "import/cell_clock.hpp"
#include "import/row_days.hpp"
#include "import/table.hpp"
#include "import/table_header.hpp"

/// How the cells of a table are read.
struct TableRules {
  const Table& table;
  const TableHeader& header;
  std::optional<DateOrder> dates;
  NumberForm numbers;
  DayRules days;

  std::string_view cell(int64_t row, TableColumn column) const {
    return table.cell(row, header.column_of(column));
  }
  Place place(int64_t row, TableColumn column) const {
    return {row, std::max<int64_t>(header.column_of(column), 1)};
  }
};

/// When a row airs. The end is one of three, or open.
struct RowTimes {
  std::vector<uint32_t> days;      ///< of the unit
  uint32_t start = 0;              ///< second of the day
  std::optional<int> end_clock;    ///< second of the day
  std::optional<uint64_t> end_at;  ///< schedule seconds
  std::optional<uint32_t> length;  ///< seconds

  bool has_end() const { return end_clock || end_at || length; }
};

/// What a cell of days means, or what is wrong with it.
struct DayCell {
  std::optional<std::vector<DayTerm>> terms;
  std::string problem;
};

/// The cells of days that were read before, by their text. Most rows repeat one.
using KnownDayCells = std::unordered_map<std::string, DayCell>;

/// Reads day, date, start, end and duration of a row. Nothing, with findings, when one of them is
/// wrong. `known` is for all rows of a table.
std::optional<RowTimes> read_row_times(const TableRules& rules, int64_t row, KnownDayCells& known,
                                       std::vector<Finding>& findings);

/// The days that the row's columns of days and dates name. The same rules for failures.
std::optional<std::vector<uint32_t>> read_row_days(const TableRules& rules, int64_t row,
                                                   KnownDayCells& known,
                                                   std::vector<Finding>& findings);
