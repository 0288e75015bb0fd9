#include <string>

#include "checks/checks.hpp"
#include "checks/line_fix.hpp"
#include "checks/named_files.hpp"
#include "checks/position_text.hpp"
#include "platform/syntax/schedule_types.hpp"
#include "platform/syntax/text.hpp"

namespace {

constexpr uint64_t shortest_month = 28;  // days

/// Whether the listings take the position for the beginning of the unit.
bool is_end_of_unit(uint64_t position, const ScheduleType& type) {
  if (type.day_name == DayName::date || position % seconds_per_day != 0) {
    return false;
  }
  const bool is_end_of_a_month = type.day_name == DayName::day_of_month &&
                                 position >= shortest_month * seconds_per_day &&
                                 position <= type.unit_length;
  return position == type.unit_length || is_end_of_a_month;
}

}  // namespace

void check_listed_end(const WrittenSchedule& written, const WrittenSection& section,
                      FileFindings& found) {
  const ScheduleType& type = *find_schedule_type(written.schedule.type);
  const WrittenValue* end = section.value_of(ScheduleKey::end);
  const bool is_in_last_second = section.start + 1 >= section.end;
  if (section.is_broken || end == nullptr || is_in_last_second ||
      !is_end_of_unit(section.end, type)) {
    return;
  }
  const std::string when = type.day_name == DayName::day_of_month && section.end < type.unit_length
                               ? "in a month that ends then, "
                               : "";
  const std::string second_before = written_position(section.end - 1, type);
  found.add(FindingKind::listed_end, end->place,
            when +
                "an end at the unit's last midnight gives the listings a row of the whole unit; "
                "write " +
                quoted(second_before),
            {}, {line_with(written, *end, second_before)});
}

void check_listed_ends(const WrittenSchedule& written, bool with_items, FileFindings& found) {
  for (const auto& [start, number] : written.blocks.by_start) {
    const WrittenSection& block = written.blocks.all[number];
    if (block.text_of(ScheduleKey::announce) == "block") {
      check_listed_end(written, block, found);
    }
  }
  for (const auto& [start, number] : written.items.by_start) {
    const WrittenSection& item = written.items.all[number];
    const bool is_named = item.value_of(ScheduleKey::label) != nullptr ||
                          item.value_of(ScheduleKey::event_id) != nullptr;
    if (with_items && is_named) {
      check_listed_end(written, item, found);
    }
  }
}

bool has_listed_title(const MetadataSet& set) {
  bool has_title = false;
  for_each_entry(set, [&](const metadata_v4_entry& entry) {
    if (is_whole(entry) && !strip_blanks(entry.value).empty()) {
      const std::string name = lower_case(entry.name);
      has_title = has_title || name == "title" || name == "program";
    }
  });
  return has_title;
}
