#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Tables as text: rows of cells with a separator in between, as RFC 4180 has them.

using CsvRow = std::vector<std::string>;

/// Where the quotes of a table are wrong. Row and column count from 1.
struct CsvMistake {
  size_t row = 0;
  size_t column = 0;
};

/// The rows of a table, with an empty row for each empty line. A line ends with LF, CR LF or CR; in
/// a cell all of them are LF. Blanks around a cell without quotes are lost. Nothing, with
/// `mistake`, when a quote stands inside an unquoted cell, text follows a closing quote, or a quote
/// is never closed.
std::optional<std::vector<CsvRow>> read_csv(std::string_view text, char separator,
                                            CsvMistake& mistake);

/// Appends the cell, in quotes if it needs them.
void append_csv_cell(std::string& out, std::string_view cell, char separator);

/// The separator of the table: of comma, semicolon and tab the one that stands most often in its
/// first line with any of them, outside of quotes. A comma if there is none.
char find_csv_separator(std::string_view text);
