#include "schedule/unit_times.hpp"

#include <cstdlib>

#include "platform/time/calendar.hpp"

Unit unit_of(std::string_view type_text, time_t t) {
  const ScheduleType* type = find_schedule_type(type_text);
  switch (type != nullptr ? type->period : UnitPeriod::none) {
    case UnitPeriod::none:
      break;
    case UnitPeriod::day:
      return {calendar_start_of_day(t), calendar_end_of_day(t), type->unit_days};
    case UnitPeriod::week:
      return {calendar_start_of_week(t), calendar_end_of_week(t), type->unit_days};
    case UnitPeriod::month:
      return {calendar_start_of_month(t), calendar_end_of_month(t), type->unit_days};
    case UnitPeriod::year:
      return {calendar_start_of_year(t), calendar_end_of_year(t), type->unit_days};
    case UnitPeriod::month_and_neighbours:
      constexpr time_t a_day = seconds_per_day;
      return {calendar_start_of_month(calendar_shift(calendar_start_of_month(t), -a_day)),
              calendar_end_of_month(calendar_shift(calendar_end_of_month(t), a_day)),
              type->unit_days};
  }
  std::abort();
}

bool compute_unit_times(Schedule& schedule, time_t report_time) {
  const Unit unit = unit_of(schedule.type, report_time);
  schedule.unit_start = unit.start;
  schedule.unit_end = unit.end;
  schedule.unit_days = unit.days;
  return true;
}
