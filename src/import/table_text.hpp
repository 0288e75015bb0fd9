#pragma once

#include <map>
#include <string>
#include <vector>

#include "import/column_names.hpp"

/// The cells of a row; missing ones are empty.
using TableCells = std::map<TableColumn, std::string>;

/// A length of media as a cell shows it; empty when it is not known (-1).
std::string duration_text(double seconds);

/// A table that is written, row by row.
class TableText {
 public:
  /// Begins with the header of these columns.
  TableText(std::vector<TableColumn> columns, char separator);

  void add_row(const TableCells& cells);

  std::string text() { return std::move(text_); }

 private:
  std::vector<TableColumn> columns_;
  char separator_;
  std::string text_;
};
