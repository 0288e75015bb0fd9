#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "checks/checks.hpp"
#include "checks/line_fix.hpp"
#include "checks/position_text.hpp"
#include "checks/time_parts.hpp"
#include "platform/time/local_text.hpp"

namespace {

/// The start of an item or a block that is a clock, with or without its day.
struct WrittenStart {
  const WrittenSection* section;
  WrittenDate date;
  bool is_complete;  ///< it has all that the type needs
  bool is_in_order;  ///< no section before it starts later
};

bool has_all_parts(const WrittenDate& date, DayName day_name) {
  switch (day_name) {
    case DayName::weekday:
      return date.weekday || date.year;
    case DayName::day_of_month:
      return date.day.has_value();
    case DayName::day_of_year:
      return date.month.has_value();
    case DayName::date:
      return date.year.has_value();
    case DayName::none:
    case DayName::only_day:
    case DayName::number:
      break;
  }
  return true;
}

/// What the date lacks, and what the reader takes in its place.
std::string missing_part(const WrittenDate& date, DayName day_name) {
  switch (day_name) {
    case DayName::weekday:
      return "has no weekday and is on Sunday";
    case DayName::day_of_month:
      return "has no day and is on day 1";
    case DayName::day_of_year:
      return date.day ? "has no month and is in January" : "has no date and is on January 1";
    case DayName::date:
    case DayName::none:
    case DayName::only_day:
    case DayName::number:
      break;
  }
  return date.month ? "has no year and is in 2020" : "has no date and is in January 2020";
}

std::vector<WrittenStart> starts_of(const WrittenSections& sections, DayName day_name) {
  std::vector<WrittenStart> starts;
  starts.reserve(sections.all.size());
  uint64_t latest = 0;
  for (const WrittenSection& section : sections.all) {
    const bool is_in_order = section.start >= latest;
    latest = std::max(latest, section.start);
    const WrittenValue* value = section.value_of(ScheduleKey::start);
    if (section.is_broken || value == nullptr) {
      continue;
    }
    const auto parts = parts_of_time(value->text);
    const bool has_needless_weekday =
        parts && day_name != DayName::weekday && parts->date.weekday && !parts->date.month;
    if (parts && !has_needless_weekday) {
      starts.push_back({&section, parts->date, has_all_parts(parts->date, day_name), is_in_order});
    }
  }
  return starts;
}

/// Whether the file leaves out the first day of the unit on purpose: several such starts at its
/// beginning, and none that names this day.
bool leaves_out_first_day(const std::vector<WrittenStart>& starts, DayName day_name) {
  const auto names_first_day = [](const WrittenStart& start) {
    return start.is_complete && start.section->start < seconds_per_day;
  };
  const auto is_left_out = [](const WrittenStart& start) {
    return !start.is_complete && start.is_in_order;
  };
  const auto count = std::ranges::count_if(starts, is_left_out);
  return day_name != DayName::date && count > 1 &&
         count == std::ranges::count(starts, false, &WrittenStart::is_complete) &&
         std::ranges::none_of(starts, names_first_day);
}

/// The start on the day of the end, if the programme lasts more than a day only because its end has
/// a day and its start has none.
std::optional<uint64_t> start_before_end(const WrittenStart& start, const ScheduleType& type) {
  const WrittenSection& section = *start.section;
  const WrittenValue* value = section.value_of(ScheduleKey::end);
  const auto end = value != nullptr ? parts_of_time(value->text) : std::nullopt;
  if (!end || !has_all_parts(end->date, type.day_name) ||
      as_signed(section.end) <= as_signed(section.start + seconds_per_day)) {
    return std::nullopt;
  }
  const uint64_t clock = section.start % seconds_per_day;
  const uint64_t same_day = (section.end - 1) / seconds_per_day * seconds_per_day + clock;
  return same_day < section.end ? same_day : same_day - seconds_per_day;
}

void check_start(const WrittenSchedule& written, const WrittenStart& start, bool have_most,
                 FileFindings& found) {
  const ScheduleType& type = *find_schedule_type(written.schedule.type);
  const bool is_first = start.section->start == 0 && start.is_in_order;
  if (start.is_complete || is_first) {
    return;
  }
  const WrittenValue& value = *start.section->value_of(ScheduleKey::start);
  const std::string text = quoted(value.text) + " " + missing_part(start.date, type.day_name);
  if (const auto meant = start_before_end(start, type)) {
    const std::string time = written_position(*meant, type);
    found.add(FindingKind::incomplete_time, value.place,
              text + ", but the end names its day; write " + quoted(time), {},
              {line_with(written, value, time)});
  } else if (have_most) {
    found.add(FindingKind::incomplete_time, value.place,
              text + ", but most times of this file have one");
  }
}

void check_starts(const WrittenSchedule& written, const WrittenSections& sections,
                  bool is_past_2020, FileFindings& found) {
  const ScheduleType& type = *find_schedule_type(written.schedule.type);
  const std::vector<WrittenStart> starts = starts_of(sections, type.day_name);
  const auto complete = std::ranges::count(starts, true, &WrittenStart::is_complete);
  const auto all = std::ssize(starts);
  if (complete == 0 && all > 0 && is_past_2020) {
    const WrittenValue& value = *starts.front().section->value_of(ScheduleKey::start);
    found.add(FindingKind::incomplete_time, value.place,
              quoted(value.text) + " " + missing_part(starts.front().date, type.day_name) +
                  "; no time of this file has one");
    return;
  }
  const bool have_most = 2 * complete > all && !leaves_out_first_day(starts, type.day_name);
  for (const WrittenStart& start : starts) {
    check_start(written, start, have_most, found);
  }
}

}  // namespace

void check_missing_parts(const WrittenSchedule& written, time_t report_time, FileFindings& found) {
  const ScheduleType& type = *find_schedule_type(written.schedule.type);
  if (type.unit_length <= seconds_per_day) {
    return;
  }
  const bool is_past_2020 = type.day_name == DayName::date &&
                            local_text(report_time, "%Y") > std::to_string(first_schedule_year);
  check_starts(written, written.items, is_past_2020, found);
  check_starts(written, written.blocks, is_past_2020, found);
}
