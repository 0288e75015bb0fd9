#include <ctime>
#include <optional>
#include <string>

#include "check/checks.hpp"
#include "platform/syntax/schedule_types.hpp"

namespace {

constexpr uint64_t last_common_day = 28;  // of a month: each has it
constexpr uint64_t february = 1;

bool is_leap_year(uint64_t year) {
  return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

/// Which months lack the day of a monthly schedule, and what happens there.
std::optional<std::string> advice_on_day(uint64_t day) {
  if (day <= last_common_day) {
    return std::nullopt;
  }
  const std::string months = day == 31   ? "months of 30 days and February have no day 31"
                             : day == 30 ? "February has no day 30"
                                         : "February has no day 29 in most years";
  return months + "; there it falls on a day of the next month, and documents of the month lack it";
}

/// The text about a February 29 at that position, or nothing if it is another date.
std::optional<std::string> advice_on_leap_day(uint64_t position, DayName day_name) {
  const uint64_t day = position / seconds_per_day % days_per_month + 1;
  const uint64_t month = position / seconds_per_month % 12;
  if (month != february || day != last_common_day + 1) {
    return std::nullopt;
  }
  if (day_name == DayName::day_of_year) {
    return "February has no 29th in most years; there it airs on March 1";
  }
  const uint64_t year = first_schedule_year + position / seconds_per_year;
  if (is_leap_year(year)) {
    return std::nullopt;
  }
  return std::to_string(year) + " has no February 29; it airs on March 1";
}

/// Whether a section of these starts on an earlier one of the month's last days, from the 28th on.
/// Then the file tells these days one by one.
bool has_last_day_before(const WrittenSections& sections, uint64_t start) {
  const uint64_t month = start - start % seconds_per_month;
  const auto first = sections.by_start.lower_bound(month + (last_common_day - 1) * seconds_per_day);
  return first->first / seconds_per_day < start / seconds_per_day;
}

void check_day(const WrittenSections& sections, const WrittenSection& section,
               const ScheduleType& type, FileFindings& found) {
  const bool is_of_a_year = type.day_name == DayName::date;
  if (section.is_broken || section.start >= type.unit_length ||
      (!is_of_a_year && has_last_day_before(sections, section.start))) {
    return;
  }
  const auto advice = type.day_name == DayName::day_of_month
                          ? advice_on_day(section.start / seconds_per_day + 1)
                          : advice_on_leap_day(section.start, type.day_name);
  if (advice) {
    found.add(FindingKind::no_such_date, section.place_of(ScheduleKey::start), *advice);
  }
}

}  // namespace

void check_dates(const WrittenSchedule& written, FileFindings& found) {
  const ScheduleType& type = *find_schedule_type(written.schedule.type);
  if (type.day_name != DayName::day_of_month && type.day_name != DayName::day_of_year &&
      type.day_name != DayName::date) {
    return;
  }
  for (const WrittenSections* sections : {&written.items, &written.blocks}) {
    for (const auto& [start, number] : sections->by_start) {
      check_day(*sections, sections->all[number], type, found);
    }
  }
}
