#include <optional>
#include <string>

#include "checks/checks.hpp"
#include "checks/position_text.hpp"
#include "checks/time_advice.hpp"
#include "platform/syntax/schedule_types.hpp"
#include "platform/time/calendar_names.hpp"
#include "platform/time/civil_date.hpp"

namespace {

constexpr uint64_t last_common_day = 28;  // of a month: each has it
constexpr uint64_t february = 1;
constexpr uint64_t months = month_lengths.size();

/// Of the years that a schedule can have, none of which ends a century.
bool is_leap_year(uint64_t year) {
  return year % 4 == 0;
}

/// Which months lack the day of a monthly schedule, and what happens there.
std::optional<std::string> advice_on_day(uint64_t day) {
  if (day <= last_common_day) {
    return std::nullopt;
  }
  const std::string lacking = day == 31   ? "months of 30 days and February have no day 31"
                              : day == 30 ? "February has no day 30"
                                          : "February has no day 29 in most years";
  return lacking +
         "; there it falls on a day of the next month, and documents of the month lack it";
}

/// What happens to a date that no year has.
std::optional<std::string> advice_on_no_date(uint64_t position) {
  const auto day = static_cast<int>(position / seconds_per_day % days_per_month) + 1;
  const uint64_t month = position / seconds_per_month % months;
  if (day <= month_lengths.at(month)) {
    return std::nullopt;
  }
  return std::string(month_names.at(month)) + " has no day " + std::to_string(day) +
         "; it airs in " + std::string(month_names.at((month + 1) % months));
}

/// What happens to a February 29. Nothing for other dates.
std::optional<std::string> advice_on_leap_day(uint64_t position, DayName day_name) {
  const auto day = static_cast<int>(position / seconds_per_day % days_per_month) + 1;
  if (position / seconds_per_month % months != february || day != month_lengths.at(february)) {
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

std::optional<std::string> advice_on(const WrittenSections& sections, const WrittenSection& section,
                                     DayName day_name) {
  const uint64_t start = section.start;
  const bool is_of_a_month = day_name == DayName::day_of_month;
  // A written date has this finding already.
  if (!is_of_a_month && is_bare_number(section.text_of(ScheduleKey::start))) {
    if (auto advice = advice_on_no_date(start)) {
      return advice;
    }
  }
  if (day_name != DayName::date && has_last_day_before(sections, start)) {
    return std::nullopt;
  }
  return is_of_a_month ? advice_on_day(start / seconds_per_day + 1)
                       : advice_on_leap_day(start, day_name);
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
      const WrittenSection& section = sections->all[number];
      const auto advice = section.is_broken || start >= type.unit_length
                              ? std::nullopt
                              : advice_on(*sections, section, type.day_name);
      if (advice) {
        found.add(FindingKind::no_such_date, section.place_of(ScheduleKey::start), *advice);
      }
    }
  }
}
