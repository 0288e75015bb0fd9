#include "import/export_table.hpp"

#include <initializer_list>

#include "import/column_names.hpp"
#include "import/row_days.hpp"
#include "import/table_text.hpp"
#include "import/written_position.hpp"

namespace {

constexpr std::initializer_list<TableColumn> written_columns = {
    TableColumn::kind,          TableColumn::day,     TableColumn::start, TableColumn::end,
    TableColumn::item,          TableColumn::label,   TableColumn::block, TableColumn::event_id,
    TableColumn::item_duration, TableColumn::announce};

/// Writes the rows of a schedule as it was read.
class WrittenTable {
 public:
  WrittenTable(const Schedule& schedule, char separator, std::vector<std::string>& warnings)
      : schedule_(schedule),
        type_(*find_schedule_type(schedule.type)),
        table_(written_columns, separator),
        warnings_(warnings) {}

  std::string write() {
    table_.add_row({{TableColumn::kind, std::string(name_of(RowKind::type))},
                    {TableColumn::item, schedule_.type}});
    if (!schedule_.global_default.empty()) {
      table_.add_row({{TableColumn::kind, std::string(name_of(RowKind::global_default))},
                      {TableColumn::item, schedule_.global_default}});
    }
    add_defaults();
    for (const auto& [start, block] : schedule_.blocks) {
      add_section(RowKind::block, block.start, block.end,
                  {{TableColumn::block, block.block}, {TableColumn::announce, block.announce}});
    }
    for (const auto& [start, item] : schedule_.schedule) {
      add_section(RowKind::item, item.start, item.end,
                  {{TableColumn::item, item.item},
                   {TableColumn::label, item.label},
                   {TableColumn::block, item.block},
                   {TableColumn::event_id, item.event_id},
                   {TableColumn::item_duration, duration_text(item.duration)}});
    }
    return table_.text();
  }

 private:
  void add_defaults() {
    const uint64_t days = schedule_.unit_length / seconds_per_day;
    for (uint32_t day = 0; day < days; ++day) {
      const std::string& item = schedule_.defaults.at(day);
      if (item != schedule_.global_default) {
        table_.add_row({{TableColumn::kind, std::string(name_of(RowKind::day_default))},
                        {TableColumn::day, day_text(day, type_)},
                        {TableColumn::item, item}});
      }
    }
  }

  void add_section(RowKind kind, uint64_t start, uint64_t end, TableCells cells) {
    if (start > end) {
      warnings_.push_back("what starts at " + start_text(start, type_) +
                          " ends before that and does not air; correct its row");
    }
    auto day = static_cast<uint32_t>(start / seconds_per_day);
    auto second = static_cast<uint32_t>(start % seconds_per_day);
    if (start == schedule_.unit_length) {  // after its last day
      --day;
      second = seconds_per_day;
    }
    cells[TableColumn::kind] = kind == RowKind::item ? std::string() : std::string(name_of(kind));
    cells[TableColumn::day] = day_text(day, type_);
    cells[TableColumn::start] = clock_text(second);
    cells[TableColumn::end] = end_of(day, second, end);
    table_.add_row(cells);
  }

  /// A clock is enough for an end less than a day after the start. Others need their day.
  std::string end_of(uint32_t day, uint32_t second, uint64_t end) const {
    const uint64_t end_of_day = (uint64_t{day} + 1) * seconds_per_day;
    const uint64_t start = uint64_t{day} * seconds_per_day + second;
    if (end >= start && end <= end_of_day) {
      return clock_text(static_cast<uint32_t>(end - end_of_day + seconds_per_day));
    }
    bool is_next_unit = false;
    const auto next = day_of_unit_after(day, 1, DayRules{&type_, {}}, is_next_unit);
    const bool is_clock_enough = next && !is_next_unit && *next == end / seconds_per_day &&
                                 end % seconds_per_day < second && end % seconds_per_day > 0;
    return is_clock_enough ? clock_text(static_cast<uint32_t>(end % seconds_per_day))
                           : end_text(end, type_);
  }

  const Schedule& schedule_;
  const ScheduleType& type_;
  TableText table_;
  std::vector<std::string>& warnings_;
};

}  // namespace

std::string table_of(const Schedule& schedule, char separator, std::vector<std::string>& warnings) {
  return WrittenTable(schedule, separator, warnings).write();
}

std::string example_table(const std::string& type_name, char separator) {
  const ScheduleType& type = *find_schedule_type(type_name);
  constexpr uint32_t day = 6 * days_per_year + 2 * days_per_month + 4;  // 5 March 2026
  const auto days = static_cast<uint32_t>(type.unit_length / seconds_per_day);
  const std::string first = day_text(day % days, type);
  TableText table(written_columns, separator);
  table.add_row(
      {{TableColumn::kind, std::string(name_of(RowKind::type))}, {TableColumn::item, type_name}});
  table.add_row({{TableColumn::day, type.day_name == DayName::weekday ? "Mon-Fri" : first},
                 {TableColumn::start, "18:00"},
                 {TableColumn::end, "18:30"},
                 {TableColumn::item, "news.mp4"},
                 {TableColumn::label, "News"},
                 {TableColumn::event_id, "N1"}});
  table.add_row({{TableColumn::day, type.day_name == DayName::weekday ? "Sat, Sun" : first},
                 {TableColumn::start, "20:15"},
                 {TableColumn::end, "22:00"},
                 {TableColumn::item, "film.mp4"},
                 {TableColumn::label, "The Film"},
                 {TableColumn::item_duration, "6300"}});
  return table.text();
}
