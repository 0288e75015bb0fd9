#include "checks/date_advice.hpp"

#include <ctime>
#include <string>

#include "checks/position_text.hpp"
#include "platform/time/calendar_names.hpp"
#include "platform/time/civil_date.hpp"
#include "platform/time/parse_time.hpp"

namespace {

/// The parts of a written date that a schedule of that type ignores.
std::string needless_parts(const WrittenDate& date, DayName day_name) {
  std::string parts;
  const auto add = [&](bool is_given, std::string_view part) {
    if (is_given) {
      parts += parts.empty() ? "" : " and ";
      parts += part;
    }
  };
  const bool counts_days = day_name != DayName::only_day && day_name != DayName::weekday;
  const bool counts_months = day_name == DayName::day_of_year || day_name == DayName::date;
  add(date.weekday.has_value() && day_name != DayName::weekday, "weekday");
  add(date.day.has_value() && !counts_days, date.month ? "date" : "day");
  add(date.month.has_value() && counts_days && !counts_months, "month");
  add(date.year.has_value() && counts_days && day_name != DayName::date, "year");
  return parts;
}

}  // namespace

std::optional<TimeAdvice> advise_on_date(const WrittenDate& date, std::string_view text,
                                         const ScheduleType& type) {
  const std::string parts = needless_parts(date, type.day_name);
  if (!parts.empty()) {
    std::string advice = a_schedule_of(type.text) + " ignores the " + parts;
    if (type.day_name == DayName::weekday && !date.weekday) {
      std::tm broken_down{};
      long microseconds = 0;
      schedule_parse_time(text, broken_down, microseconds);
      advice = "a weekly schedule takes only the weekday of the date: every " +
               std::string(weekday_names.at(static_cast<size_t>(broken_down.tm_wday)));
    }
    return TimeAdvice{FindingKind::needless_date, 0, advice};
  }
  if (type.day_name == DayName::date && date.year && *date.year < first_schedule_year) {
    return TimeAdvice{FindingKind::out_of_range, 0,
                      "years before " + std::to_string(first_schedule_year) + " count as " +
                          std::to_string(first_schedule_year)};
  }
  if (date.month && date.day && in_range(date)) {
    const auto month = static_cast<size_t>(*date.month) - 1;
    if (*date.day > month_lengths.at(month)) {
      return TimeAdvice{FindingKind::no_such_date, 0,
                        std::string(month_names.at(month)) + " has no day " +
                            std::to_string(*date.day) + "; it airs on " +
                            std::string(month_names.at((month + 1) % 12)) + " " +
                            std::to_string(*date.day - month_lengths.at(month)) +
                            (month == 1 ? ", or a day later where February has no 29th" : "")};
    }
  }
  return std::nullopt;
}
