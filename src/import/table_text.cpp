#include "import/table_text.hpp"

#include <array>
#include <charconv>

#include "platform/syntax/csv_text.hpp"

std::string duration_text(double seconds) {
  if (seconds == -1) {
    return {};
  }
  std::array<char, 400> text{};
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), seconds, std::chars_format::fixed);
  return {text.data(), end.ptr};
}

TableText::TableText(std::vector<TableColumn> columns, char separator)
    : columns_(std::move(columns)), separator_(separator) {
  TableCells header;
  for (const TableColumn column : columns_) {
    header[column] = name_of(column);
  }
  add_row(header);
}

void TableText::add_row(const TableCells& cells) {
  const char* separator = "";
  const std::string between(1, separator_);
  for (const TableColumn column : columns_) {
    text_ += separator;
    if (const auto cell = cells.find(column); cell != cells.end()) {
      append_csv_cell(text_, cell->second, separator_);
    }
    separator = between.c_str();
  }
  text_ += '\n';
}
