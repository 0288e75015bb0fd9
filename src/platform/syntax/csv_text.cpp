#include "platform/syntax/csv_text.hpp"

#include <csv.h>

#include <algorithm>
#include <array>
#include <utility>

#include "platform/syntax/text.hpp"
#include "platform/system/messages.hpp"

namespace {

/// All line ends become LF. The parser would otherwise count CR LF as two.
std::string with_line_feeds(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (;;) {
    const size_t end = text.find('\r');
    out += text.substr(0, end);
    if (end == std::string_view::npos) {
      return out;
    }
    out += '\n';
    text.remove_prefix(end + 1);
    text.remove_prefix(text.starts_with('\n') ? 1 : 0);
  }
}

/// Takes the cells from the parser.
struct CsvRows {
  std::vector<CsvRow> rows;
  CsvRow row;
};

void take_csv_cell(void* cell, size_t size, void* rows) {
  static_cast<CsvRows*>(rows)->row.emplace_back(static_cast<const char*>(cell), size);
}

void take_csv_row(int /*end*/, void* rows) {
  auto& taken = *static_cast<CsvRows*>(rows);
  taken.rows.push_back(std::exchange(taken.row, {}));
  taken.row.reserve(taken.rows.back().size());  // the rows of a table are mostly equally long
}

/// Ends the run as any other allocation that fails.
void* reallocate(void* old, size_t size) {
  void* const memory = std::realloc(old, size);
  if (memory == nullptr && size > 0) {
    fail_run("Out of memory");
  }
  return memory;
}

}  // namespace

std::optional<std::vector<CsvRow>> read_csv(std::string_view text, char separator,
                                            CsvMistake& mistake) {
  std::string changed;
  std::string_view lines = text;
  if (text.find('\r') != std::string_view::npos) {
    changed = with_line_feeds(text);
    lines = changed;
  }
  csv_parser parser{};
  csv_init(&parser, CSV_STRICT | CSV_STRICT_FINI | CSV_REPALL_NL);
  csv_set_delim(&parser, static_cast<unsigned char>(separator));
  csv_set_realloc_func(&parser, reallocate);
  CsvRows rows;
  const bool is_whole = csv_parse(&parser, lines.data(), lines.size(), take_csv_cell, take_csv_row,
                                  &rows) == lines.size() &&
                        csv_fini(&parser, take_csv_cell, take_csv_row, &rows) == 0;
  csv_free(&parser);
  if (!is_whole) {
    mistake = {rows.rows.size() + 1, rows.row.size() + 1};
    return std::nullopt;
  }
  return std::move(rows.rows);
}

void append_csv_cell(std::string& out, std::string_view cell, char separator) {
  const bool has_edge = !cell.empty() && (is_blank(cell.front()) || is_blank(cell.back()));
  const bool needs_quotes = has_edge || std::ranges::any_of(cell, [separator](char c) {
                              return c == separator || c == '"' || c == '\n' || c == '\r';
                            });
  if (!needs_quotes) {
    out += cell;
    return;
  }
  out += '"';
  for (const char c : cell) {
    out += c;
    if (c == '"') {
      out += '"';
    }
  }
  out += '"';
}

char find_csv_separator(std::string_view text) {
  constexpr std::string_view separators = ",;\t";
  std::array<size_t, separators.size()> counts{};
  bool is_quoted = false;
  for (const char c : text) {
    if (c == '"') {
      is_quoted = !is_quoted;
    } else if ((c == '\n' || c == '\r') && !is_quoted && std::ranges::max(counts) > 0) {
      break;
    } else if (const size_t at = separators.find(c); !is_quoted && at != std::string_view::npos) {
      ++counts.at(at);
    }
  }
  return separators[static_cast<size_t>(std::ranges::max_element(counts) - counts.begin())];
}
