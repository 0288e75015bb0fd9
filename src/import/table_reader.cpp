#include "import/table_reader.hpp"

#include <algorithm>
#include <array>
#include <utility>

#include "import/folded_word.hpp"
#include "import/open_ends.hpp"
#include "platform/syntax/nearest_word.hpp"
#include "platform/syntax/text.hpp"

namespace {

bool is_blank_row(const CsvRow& row) {
  return std::ranges::all_of(row,
                             [](const std::string& cell) { return strip_blanks(cell).empty(); });
}

bool is_remark(const CsvRow& row) {
  return !row.empty() && strip_blanks(row.front()).starts_with('#');
}

/// Whether a row of that kind can say what is in that column.
bool uses_column(RowKind kind, TableColumn column) {
  switch (column) {
    case TableColumn::kind:
      return true;
    case TableColumn::item:
      return kind != RowKind::block;
    case TableColumn::day:
    case TableColumn::date:
      return kind != RowKind::global_default && kind != RowKind::type;
    case TableColumn::block:
    case TableColumn::start:
    case TableColumn::end:
    case TableColumn::duration:
      return kind == RowKind::item || kind == RowKind::block;
    case TableColumn::announce:
      return kind == RowKind::block;
    case TableColumn::label:
    case TableColumn::event_id:
    case TableColumn::item_duration:
      return kind == RowKind::item;
  }
  return true;
}

/// Goes through the rows below the header.
class TableReader {
 public:
  TableReader(const TableRules& rules, std::vector<Finding>& findings)
      : rules_(rules), findings_(findings) {}

  MadeSchedule read() {
    made_.type = rules_.days.type;
    for (int64_t row = rules_.header.row + 1; row <= row_count(); ++row) {
      const CsvRow& cells = rules_.table.rows[static_cast<size_t>(row) - 1];
      if (!is_blank_row(cells) && !is_remark(cells)) {
        read_row(row);
        warn_of_cells_without_header(row, cells);
      }
    }
    close_open_ends(open_, rules_, made_.items, findings_);
    const auto sort = [](std::vector<MadeSection>& sections) {
      std::ranges::stable_sort(sections, {}, &MadeSection::start);
    };
    sort(made_.items);
    sort(made_.blocks);
    std::ranges::stable_sort(made_.defaults, {}, &MadeDefault::day);
    return std::move(made_);
  }

 private:
  int64_t row_count() const { return static_cast<int64_t>(rules_.table.rows.size()); }

  std::string_view cell(int64_t row, TableColumn column) const {
    return strip_blanks(rules_.cell(row, column));
  }

  void add(FindingKind kind, int64_t row, TableColumn column, std::string text) {
    findings_.push_back({kind, rules_.place(row, column), std::move(text), {}});
  }

  void read_row(int64_t row) {
    const std::optional<RowKind> kind = find_row_kind(cell(row, TableColumn::kind));
    if (!kind) {
      add(FindingKind::unknown_kind, row, TableColumn::kind,
          "unknown kind " + quoted_cell(cell(row, TableColumn::kind)) +
              "; a row is an item, block, default, global default or type. Give the column "
              "another header if it says something else");
      return;
    }
    if (!has_subject(row, *kind)) {
      return;
    }
    warn_of_needless_day(row);
    warn_of_unused_cell(row, *kind);
    switch (*kind) {
      case RowKind::item:
      case RowKind::block:
        read_section(row, *kind);
        break;
      case RowKind::day_default:
        read_default(row);
        break;
      case RowKind::global_default:
        made_.global_default_row = row;
        break;
      case RowKind::type:
        break;  // read before
    }
  }

  /// Whether the row names what it is about.
  bool has_subject(int64_t row, RowKind kind) {
    const TableColumn column = kind == RowKind::block ? TableColumn::block : TableColumn::item;
    if (cell(row, column).empty()) {
      add(FindingKind::missing, row, column, "the row has no " + std::string(name_of(column)));
      return false;
    }
    return has_no_line_breaks(row);
  }

  bool has_no_line_breaks(int64_t row) {
    bool is_good = true;
    for (const ColumnName& column : column_names()) {
      if (cell(row, column.column).find('\n') != std::string_view::npos) {
        add(FindingKind::line_break, row, column.column,
            "a line break in the " + std::string(column.name) + "; a schedule has none");
        is_good = false;
      }
    }
    return is_good;
  }

  void read_default(int64_t row) {
    if (const auto days = read_row_days(rules_, row, known_days_, findings_)) {
      for (const uint32_t day : *days) {
        made_.defaults.push_back({row, day});
      }
    }
  }

  /// Told once, at the header, and not at each row.
  bool has_start_column() {
    const bool has_one = rules_.header.column_of(TableColumn::start) > 0;
    if (!has_one && !has_told_of_start_) {
      has_told_of_start_ = true;
      findings_.push_back({FindingKind::missing,
                           {rules_.header.row, 1},
                           "no column is the start; name it with --columns start=HEADER",
                           {}});
    }
    return has_one;
  }

  void read_section(int64_t row, RowKind kind) {
    if (!has_start_column()) {
      return;
    }
    const size_t before = findings_.size();
    check_item_duration(row);
    const std::optional<RowTimes> times = read_row_times(rules_, row, known_days_, findings_);
    if (!times || findings_.size() > before) {
      return;
    }
    if (!has_room(row, times->days.size())) {
      return;
    }
    if (!times->has_end() && kind == RowKind::item) {
      keep_open(row, *times);
      return;
    }
    if (!times->has_end()) {
      add(FindingKind::missing, row, TableColumn::end, "the row has no end and no duration");
      return;
    }
    auto& sections = kind == RowKind::block ? made_.blocks : made_.items;
    for (const uint32_t day : times->days) {
      if (!place_section(rules_, row, *times, day, sections, findings_)) {
        return;
      }
    }
  }

  /// The item's end is known when all rows are read.
  void keep_open(int64_t row, const RowTimes& times) {
    for (const uint32_t day : times.days) {
      const uint64_t start = uint64_t{day} * seconds_per_day + times.start;
      if (start >= rules_.days.type->unit_length) {
        add(FindingKind::outside_unit, row, TableColumn::start,
            "the row lies outside a " + std::string(rules_.days.type->text) + " schedule");
        return;
      }
      open_.push_back({row, start, 0});
    }
  }

  void check_item_duration(int64_t row) {
    const std::string_view text = cell(row, TableColumn::item_duration);
    if (!text.empty() && item_duration_text(rules_, row).empty()) {
      add(FindingKind::bad_duration, row, TableColumn::item_duration,
          "invalid duration " + quoted_cell(text));
    }
  }

  /// A guard of memory. Fifteen years with a hundred items on each day are less.
  bool has_room(int64_t row, size_t count) {
    constexpr size_t most = 2'000'000;
    if (made_.items.size() + made_.blocks.size() + open_.size() + count <= most) {
      return true;
    }
    if (!is_full_) {
      add(FindingKind::too_many_items, row, TableColumn::day,
          "the rows make more than 2000000 items; the rows from here on are not read");
    }
    is_full_ = true;
    return false;
  }

  void warn_of_needless_day(int64_t row) {
    if (rules_.days.type->day_name != DayName::only_day || has_warned_of_day_) {
      return;
    }
    for (const TableColumn column : {TableColumn::day, TableColumn::date}) {
      const auto group = find_weekday_group(folded_word(cell(row, column)));
      if (!cell(row, column).empty() && group != all_weekdays && !has_warned_of_day_) {
        has_warned_of_day_ = true;
        add(FindingKind::needless_date, row, column,
            "a daily schedule is the same every day; it ignores days and dates");
      }
    }
  }

  void warn_of_unused_cell(int64_t row, RowKind kind) {
    for (const ColumnName& column : column_names()) {
      const std::string_view text = cell(row, column.column);
      if (!text.empty() && !uses_column(kind, column.column)) {
        add(FindingKind::unused_cell, row, column.column,
            "a row of the kind " + quoted(name_of(kind)) + " has no " + std::string(column.name) +
                ", so " + quoted_cell(text) + " is not used");
        return;
      }
    }
  }

  void warn_of_cells_without_header(int64_t row, const CsvRow& cells) {
    const CsvRow& names = rules_.table.rows[static_cast<size_t>(rules_.header.row) - 1];
    for (size_t i = 0; i < cells.size(); ++i) {
      const bool has_name = i < names.size() && !strip_blanks(names[i]).empty();
      if (!has_name && !strip_blanks(cells[i]).empty()) {
        findings_.push_back({FindingKind::unused_cell,
                             {row, static_cast<int64_t>(i) + 1},
                             "the column has no name, so " + quoted_cell(cells[i]) + " is not used",
                             {}});
        return;
      }
    }
  }

  const TableRules& rules_;
  KnownDayCells known_days_;
  std::vector<Finding>& findings_;
  MadeSchedule made_;
  std::vector<MadeSection> open_;  ///< items without an end
  bool is_full_ = false;
  bool has_warned_of_day_ = false;
  bool has_told_of_start_ = false;
};

/// The type that a row names, or that of the options.
const ScheduleType* find_table_type(const Table& table, const TableHeader& header,
                                    const TableOptions& options, std::vector<Finding>& findings) {
  Place place{header.row, 1};
  std::string name = options.type;
  for (auto i = static_cast<size_t>(header.row); i < table.rows.size(); ++i) {
    const auto row = static_cast<int64_t>(i) + 1;
    const auto kind = find_row_kind(table.cell(row, header.column_of(TableColumn::kind)));
    if (kind == RowKind::type && !is_remark(table.rows[i])) {
      place = {row, header.column_of(TableColumn::item)};
      name = lower_case(strip_blanks(table.cell(row, place.column)));
      break;
    }
  }
  if (name.empty()) {
    findings.push_back({FindingKind::no_type,
                        place,
                        "the type of the schedule is not said; use --type weekly, or a row of the "
                        "kind 'type' with the item 'weekly'",
                        {}});
    return nullptr;
  }
  const ScheduleType* type = find_schedule_type(name);
  if (type == nullptr || type->unit_length == 0) {
    std::vector<std::string_view> names;
    for (const ScheduleType& known : schedule_types()) {
      if (known.unit_length > 0) {
        names.push_back(known.text);
      }
    }
    findings.push_back({FindingKind::unknown_type,
                        place,
                        "unknown type " + quoted_cell(name) + did_you_mean(name, names),
                        {}});
    return nullptr;
  }
  return type;
}

bool has_point_clocks(const Table& table, const TableHeader& header) {
  for (const CsvRow& row : table.rows) {
    for (const TableColumn column : {TableColumn::start, TableColumn::end}) {
      const auto place = static_cast<size_t>(header.column_of(column));
      if (place > 0 && place <= row.size() && is_point_clock(row[place - 1])) {
        return true;
      }
    }
  }
  return false;
}

}  // namespace

std::optional<TableRules> rules_of_table(const Table& table, const TableHeader& header,
                                         const TableOptions& options,
                                         std::vector<Finding>& findings) {
  const ScheduleType* type = find_table_type(table, header, options, findings);
  if (type == nullptr) {
    return std::nullopt;
  }
  const NumberForm numbers{table.has_raw_numbers,
                           !table.has_raw_numbers && has_point_clocks(table, header)};
  return TableRules{table, header, options.dates, numbers, {type, options.today}};
}

MadeSchedule read_table_rows(const TableRules& rules, std::vector<Finding>& findings) {
  return TableReader(rules, findings).read();
}
