#include "schedule/unit_times.hpp"

#include <cstdlib>

#include "platform/time/calendar.hpp"

bool compute_unit_times(Schedule& schedule, time_t report_time) {
  const ScheduleType* type = find_schedule_type(schedule.type);
  switch (type != nullptr ? type->period : UnitPeriod::none) {
    case UnitPeriod::none:
      std::abort();
    case UnitPeriod::day:
      schedule.unit_start = calendar_start_of_day(report_time);
      schedule.unit_end = calendar_end_of_day(report_time);
      break;
    case UnitPeriod::week:
      schedule.unit_start = calendar_start_of_week(report_time);
      schedule.unit_end = calendar_end_of_week(report_time);
      break;
    case UnitPeriod::month:
      schedule.unit_start = calendar_start_of_month(report_time);
      schedule.unit_end = calendar_end_of_month(report_time);
      break;
    case UnitPeriod::year:
      schedule.unit_start = calendar_start_of_year(report_time);
      schedule.unit_end = calendar_end_of_year(report_time);
      break;
    case UnitPeriod::month_and_neighbours:
      constexpr time_t a_day = seconds_per_day;
      schedule.unit_start =
          calendar_start_of_month(calendar_shift(calendar_start_of_month(report_time), -a_day));
      schedule.unit_end =
          calendar_end_of_month(calendar_shift(calendar_end_of_month(report_time), a_day));
      break;
  }
  schedule.unit_days = type->unit_days;
  return true;
}
