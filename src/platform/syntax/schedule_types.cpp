#include "platform/syntax/schedule_types.hpp"

#include <array>

namespace {

// An endless schedule covers 15 years, but only the month of the report time and its neighbours are
// placed in the calendar. An interval schedule has only defaults and no unit.
constexpr std::array<ScheduleType, 6> types = {{
    {"daily", "defaults, of the day", "application/x-quorin-daily-schedule", seconds_per_day,
     UnitPeriod::day, 1, DayName::only_day},
    {"weekly", "defaults, day of the week", "application/x-quorin-weekly-schedule",
     7 * seconds_per_day, UnitPeriod::week, 7, DayName::weekday},
    {"monthly", "defaults, day of the month", "application/x-quorin-monthly-schedule",
     seconds_per_month, UnitPeriod::month, days_per_month, DayName::day_of_month},
    {"yearly", "defaults, day of the year", "application/x-quorin-yearly-schedule",
     seconds_per_year, UnitPeriod::year, days_per_year, DayName::day_of_year},
    {"endless", "", "application/x-quorin-endless-schedule", schedule_years* seconds_per_year,
     UnitPeriod::month_and_neighbours, 3 * days_per_month, DayName::date},
    {"interval", "defaults, day of the interval", "", 0, UnitPeriod::none, 0, DayName::number},
}};

using TypeName = std::string_view ScheduleType::*;

const ScheduleType* find_by(TypeName field, std::string_view text) {
  for (const ScheduleType& type : types) {
    if (!text.empty() && type.*field == text) {
      return &type;
    }
  }
  return nullptr;
}

}  // namespace

std::span<const ScheduleType> schedule_types() {
  return types;
}

const ScheduleType* find_schedule_type(std::string_view text) {
  return find_by(&ScheduleType::text, text);
}

const ScheduleType* find_schedule_type_of_section(std::string_view defaults_section) {
  return find_by(&ScheduleType::defaults_section, defaults_section);
}

const ScheduleType* find_schedule_type_of_mime_type(std::string_view mime_type) {
  return find_by(&ScheduleType::mime_type, mime_type);
}
