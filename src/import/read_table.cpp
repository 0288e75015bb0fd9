#include "import/read_table.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "import/spreadsheet.hpp"
#include "platform/syntax/text_encoding.hpp"
#include "platform/system/file.hpp"

namespace {

std::optional<std::string> read_bytes(const std::string& path, std::string& error) {
  std::optional<std::string> bytes;
  if (path == "-") {
    bytes = read_content(STDIN_FILENO);
  } else if (const FileDescriptor file = open_regular_file(AT_FDCWD, path.c_str());
             file.is_open()) {
    bytes = read_content(file.get());
  }
  if (!bytes) {
    error = errno == EINVAL ? std::string("is not a regular file")
                            : std::string("cannot be read: ") + std::strerror(errno);
  }
  return bytes;
}

/// The separator that is asked for, or that the first line names as Excel reads it ("sep=;").
/// 0 if neither is said.
char said_separator(std::string_view text, char asked) {
  constexpr std::string_view sign = "sep=";
  const bool is_named = text.starts_with(sign) && text.size() > sign.size() + 1 &&
                        (text[sign.size() + 1] == '\n' || text[sign.size() + 1] == '\r');
  return asked == 0 && is_named ? text[sign.size()] : asked;
}

/// The separator that is said, or that the first line with one uses most.
char separator_of(std::string_view text, char asked) {
  const char said = said_separator(text, asked);
  return said != 0 ? said : find_csv_separator(text);
}

/// The rows of the text. A title above the header may have other separators than the table, so
/// each is tried until there is a header.
std::optional<std::vector<CsvRow>> rows_of_text(std::string_view text, const TableForm& form,
                                                CsvMistake& mistake) {
  const char first = separator_of(text, form.separator);
  auto rows = read_csv(text, first, mistake);
  if (said_separator(text, form.separator) != 0 ||
      (rows && has_table_header(*rows, form.columns))) {
    return rows;
  }
  for (const char other : {',', ';', '\t'}) {
    CsvMistake ignored;
    if (other == first || text.find(other) == std::string_view::npos) {
      continue;
    }
    auto others = read_csv(text, other, ignored);
    if (others && has_table_header(*others, form.columns)) {
      return others;
    }
  }
  return rows;
}

/// The place of the text's end, in a table with that separator.
Place end_of(const std::string& text, char separator) {
  CsvMistake mistake;
  const char found = separator_of(text, separator);
  // The quote that is open there, if there is one, cannot be closed; the rows before it count.
  const auto rows = read_csv(text, found, mistake);
  if (!rows) {
    return {static_cast<int64_t>(mistake.row), static_cast<int64_t>(mistake.column)};
  }
  const bool is_row_done = text.empty() || text.back() == '\n';
  const auto count = static_cast<int64_t>(rows->size());
  return {is_row_done ? count + 1 : count,
          is_row_done ? 1 : static_cast<int64_t>(rows->back().size())};
}

}  // namespace

std::optional<Table> table_of_text(std::string_view bytes, const TableForm& form,
                                   std::vector<Finding>& findings) {
  std::string valid;
  const std::optional<std::string> text = text_as_utf_8(bytes, form.encoding, valid);
  if (!text) {
    const std::string name = form.encoding.empty() ? "UTF-8" : form.encoding;
    findings.push_back({FindingKind::bad_encoding,
                        end_of(valid, form.separator),
                        "not valid " + name +
                            "; name the encoding of the table, such as "
                            "--encoding Windows-1252",
                        {}});
    return std::nullopt;
  }
  if (const size_t nul = text->find('\0'); nul != std::string::npos) {
    findings.push_back({FindingKind::nul_byte,
                        end_of(text->substr(0, nul), form.separator),
                        "a NUL byte; the file is no table, or its encoding is another one",
                        {}});
    return std::nullopt;
  }
  CsvMistake mistake;
  auto rows = rows_of_text(*text, form, mistake);
  if (!rows) {
    findings.push_back({FindingKind::bad_quotes,
                        {static_cast<int64_t>(mistake.row), static_cast<int64_t>(mistake.column)},
                        "a quote inside a cell without quotes, text behind a closing quote, or a "
                        "quote that is never closed",
                        {}});
    return std::nullopt;
  }
  return Table{*std::move(rows), false};
}

std::optional<Table> read_table(const std::string& path, const TableForm& form, std::string& error,
                                std::vector<Finding>& findings) {
  const std::optional<std::string> bytes = read_bytes(path, error);
  if (!bytes || !is_spreadsheet(*bytes)) {
    return bytes ? table_of_text(*bytes, form, findings) : std::nullopt;
  }
  const std::optional<std::string> text = csv_of_spreadsheet(*bytes, error);
  std::optional<Table> table = text ? table_of_text(*text, {"", ',', {}}, findings) : std::nullopt;
  if (table) {
    table->has_raw_numbers = true;
  }
  return table;
}
