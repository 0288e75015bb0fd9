#include "platform/schedule_types.hpp"

#include <array>

namespace {

// An endless schedule spans 15 years, but only the month of the report time and its neighbours are
// placed in the calendar. An interval schedule has defaults alone and no unit.
constexpr std::array<ScheduleType, 6> types = {{
    {"daily", "defaults, of the day", "application/x-quorin-daily-schedule", seconds_per_day, 1},
    {"weekly", "defaults, day of the week", "application/x-quorin-weekly-schedule",
     7 * seconds_per_day, 7},
    {"monthly", "defaults, day of the month", "application/x-quorin-monthly-schedule",
     seconds_per_month, 31},
    {"yearly", "defaults, day of the year", "application/x-quorin-yearly-schedule",
     seconds_per_year, days_per_year},
    {"endless", "", "application/x-quorin-endless-schedule", schedule_years* seconds_per_year, 93},
    {"interval", "defaults, day of the interval", "", 0, 0},
}};

const ScheduleType* find_by(std::string_view ScheduleType::*field, std::string_view text) {
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
