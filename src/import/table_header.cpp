#include "import/table_header.hpp"

#include <algorithm>

#include "import/folded_word.hpp"
#include "platform/syntax/nearest_word.hpp"
#include "platform/syntax/text.hpp"

namespace {

std::optional<TableColumn> column_of_name(std::string_view name) {
  for (const ColumnName& known : column_names()) {
    if (known.name == name) {
      return known.column;
    }
  }
  return std::nullopt;
}

/// The column that a header cell means. The user's own names come before the known ones.
std::optional<TableColumn> chosen_column(std::string_view header, const ColumnChoices& choices) {
  const std::string word = folded_word(header);
  for (const auto& [column, name] : choices) {
    if (name == word) {
      return column;
    }
  }
  const std::optional<TableColumn> column = find_column(header);
  const auto is_other = [&](const auto& choice) { return column == choice.first; };
  return std::ranges::any_of(choices, is_other) ? std::nullopt : column;
}

bool is_header_row(const CsvRow& row, const ColumnChoices& choices) {
  bool has_item = false;
  size_t known = 0;
  for (const std::string& cell : row) {
    const std::optional<TableColumn> column = chosen_column(cell, choices);
    has_item = has_item || column == TableColumn::item;
    known += column ? 1U : 0U;
  }
  return has_item && known >= 2;
}

std::optional<size_t> header_row(const std::vector<CsvRow>& rows, const ColumnChoices& choices) {
  constexpr size_t last_row = 50;  // titles and remarks may stand above the header
  for (size_t row = 0; row < std::min(last_row, rows.size()); ++row) {
    if (is_header_row(rows[row], choices)) {
      return row;
    }
  }
  return std::nullopt;
}

void add_column(TableHeader& header, TableColumn column, int64_t place, std::string_view cell,
                std::vector<Finding>& findings) {
  int64_t& known = header.columns.at(static_cast<size_t>(column));
  if (known != 0) {
    findings.push_back(
        {FindingKind::repeated_column,
         {header.row, place},
         "two columns are the " + quoted(name_of(column)) + "; name the right one with --columns",
         {{{header.row, known}, "the other one is here"}}});
    return;
  }
  known = place;
  const int unit = number_unit_of(folded_word(cell)).seconds;
  if (column == TableColumn::duration) {
    header.duration_unit = unit;
  } else if (column == TableColumn::item_duration) {
    header.item_duration_unit = unit;
  }
}

}  // namespace

std::optional<ColumnChoices> read_column_choices(const std::string& text, std::string& error) {
  ColumnChoices choices;
  for (std::string_view rest = text; !rest.empty();) {
    const std::string_view part = rest.substr(0, rest.find(','));
    rest.remove_prefix(std::min(part.size() + 1, rest.size()));
    const auto pair = divide_name_equ_value_pair(part);
    if (!pair) {
      error = quoted(part) + " is not COLUMN=HEADER";
      return std::nullopt;
    }
    const auto column = column_of_name(folded_word(pair->name));
    if (!column) {
      std::vector<std::string_view> names;
      for (const ColumnName& known : column_names()) {
        names.push_back(known.name);
      }
      error = "unknown column " + quoted(pair->name) + did_you_mean(pair->name, names);
      return std::nullopt;
    }
    choices.emplace_back(*column, folded_word(pair->value));
  }
  return choices;
}

bool has_table_header(const std::vector<CsvRow>& rows, const ColumnChoices& choices) {
  return header_row(rows, choices).has_value();
}

std::optional<TableHeader> find_table_header(const Table& table, const ColumnChoices& choices,
                                             std::vector<Finding>& findings) {
  const std::optional<size_t> row = header_row(table.rows, choices);
  if (!row) {
    findings.push_back({FindingKind::no_header,
                        {},
                        "no row names the columns; write a first row such as "
                        "'item', 'day', 'start', 'end', or name the columns with --columns",
                        {}});
    return std::nullopt;
  }
  TableHeader header;
  header.row = static_cast<int64_t>(*row) + 1;
  for (size_t i = 0; i < table.rows[*row].size(); ++i) {
    const std::string_view cell = strip_blanks(table.rows[*row][i]);
    const auto place = static_cast<int64_t>(i) + 1;
    if (const auto column = chosen_column(cell, choices)) {
      add_column(header, *column, place, cell, findings);
    } else if (!cell.empty()) {
      header.others.push_back({place, metadata_name_of(cell)});
    }
  }
  return header;
}
