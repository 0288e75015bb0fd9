#include "schedule/unit_times.hpp"

#include <cstdlib>

#include "platform/time/calendar.hpp"

UnitTimes unit_times(std::string_view type_text, time_t report_time) {
  const ScheduleType* type = find_schedule_type(type_text);
  switch (type != nullptr ? type->period : UnitPeriod::none) {
    case UnitPeriod::none:
      break;
    case UnitPeriod::day:
      return {type->unit_days, calendar_start_of_day(report_time),
              calendar_end_of_day(report_time)};
    case UnitPeriod::week:
      return {type->unit_days, calendar_start_of_week(report_time),
              calendar_end_of_week(report_time)};
    case UnitPeriod::month:
      return {type->unit_days, calendar_start_of_month(report_time),
              calendar_end_of_month(report_time)};
    case UnitPeriod::year:
      return {type->unit_days, calendar_start_of_year(report_time),
              calendar_end_of_year(report_time)};
    case UnitPeriod::month_and_neighbours:
      constexpr time_t a_day = seconds_per_day;
      return {type->unit_days,
              calendar_start_of_month(calendar_shift(calendar_start_of_month(report_time), -a_day)),
              calendar_end_of_month(calendar_shift(calendar_end_of_month(report_time), a_day))};
  }
  std::abort();
}

bool compute_unit_times(Schedule& schedule, time_t report_time) {
  const UnitTimes times = unit_times(schedule.type, report_time);
  schedule.unit_days = times.days;
  schedule.unit_start = times.start;
  schedule.unit_end = times.end;
  return true;
}
