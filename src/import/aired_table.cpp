#include "import/aired_table.hpp"

#include <cerrno>
#include <cstring>
#include <initializer_list>
#include <string_view>

#include "checks/finding.hpp"
#include "import/table_text.hpp"
#include "metadata/place_schedule.hpp"
#include "platform/system/file.hpp"
#include "platform/time/local_text.hpp"
#include "schedule/complete_schedule.hpp"
#include "schedule/schedule_reader.hpp"
#include "schedule/schedule_time.hpp"
#include "writers/item_walk.hpp"

namespace {

constexpr std::initializer_list<TableColumn> aired_columns = {
    TableColumn::kind,  TableColumn::date,     TableColumn::start,
    TableColumn::end,   TableColumn::item,     TableColumn::label,
    TableColumn::block, TableColumn::event_id, TableColumn::item_duration};

std::string_view kind_of(const ScheduleItem& item) {
  return name_of(item.is_block     ? RowKind::block
                 : item.is_default ? RowKind::day_default
                                   : RowKind::item);
}

void add_airing(TableText& table, const ScheduleItem& item, time_t start, UnitClock& clock) {
  const time_t end = clock.time_of(item.end);
  table.add_row({{TableColumn::kind, std::string(kind_of(item))},
                 {TableColumn::date, local_text(start, "%F")},
                 {TableColumn::start, local_text(start, "%T")},
                 {TableColumn::end, end == -1 ? std::string() : local_text(end, "%T")},
                 {TableColumn::item, item.item},
                 {TableColumn::label, item.label},
                 {TableColumn::block, item.block},
                 {TableColumn::event_id, item.event_id},
                 {TableColumn::item_duration, duration_text(item.duration)}});
}

}  // namespace

bool read_for_table(Schedule& schedule, const std::string& path, std::string& error) {
  if (look_at(path) == FileState::link) {
    error =
        "is a link, and no program reads a schedule through a link; name the file that it "
        "leads to";
    return false;
  }
  if (!read_schedule_file(schedule, path.c_str(), Links::refused)) {
    error = errno == EINVAL ? std::string("is not a regular file")
                            : std::string("cannot be read: ") + std::strerror(errno);
    return false;
  }
  if (schedule.unit_length == 0) {
    error = "a schedule of the type " + quoted(schedule.type) + " has no times to make a table of";
    return false;
  }
  return true;
}

std::string table_of_airing(Schedule& schedule, const std::string& path, char separator,
                            time_t report_time) {
  complete_schedule(schedule);
  place_schedule(schedule, report_time, path);
  TableText table(aired_columns, separator);
  UnitClock clock(schedule);
  walk_items(
      schedule, clock, schedule.unit_start, schedule.unit_end + 1,
      [&](const ScheduleItem& item, time_t start) { add_airing(table, item, start, clock); });
  return table.text();
}
