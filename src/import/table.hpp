#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/syntax/csv_text.hpp"

/// A table, as it was read. Places in it are a row and a column, both counted from 1 as
/// spreadsheets show them.
struct Table {
  std::vector<CsvRow> rows;
  /// It comes from a spreadsheet's own file: dates and times are numbers of days.
  bool has_raw_numbers = false;

  /// Empty when there is no such cell. `row` and `column` count from 1.
  std::string_view cell(int64_t row, int64_t column) const {
    const auto r = static_cast<size_t>(row) - 1;
    const auto c = static_cast<size_t>(column) - 1;
    return r < rows.size() && c < rows[r].size() ? std::string_view(rows[r][c])
                                                 : std::string_view();
  }
};
