#include "schedule/unit_times.hpp"

#include <cstdlib>

#include "platform/calendar.hpp"

bool compute_unit_times(Schedule& schedule, time_t report_time) {
  if (schedule.type == "weekly") {
    schedule.unit_start = calendar_start_of_week(report_time);
    schedule.unit_end = calendar_end_of_week(report_time);
  } else if (schedule.type == "daily") {
    schedule.unit_start = calendar_start_of_day(report_time);
    schedule.unit_end = calendar_end_of_day(report_time);
  } else if (schedule.type == "monthly") {
    schedule.unit_start = calendar_start_of_month(report_time);
    schedule.unit_end = calendar_end_of_month(report_time);
  } else if (schedule.type == "yearly") {
    schedule.unit_start = calendar_start_of_year(report_time);
    schedule.unit_end = calendar_end_of_year(report_time);
  } else if (schedule.type == "endless") {
    constexpr time_t a_day = seconds_per_day;
    schedule.unit_start =
        calendar_start_of_month(calendar_shift(calendar_start_of_month(report_time), -a_day));
    schedule.unit_end =
        calendar_end_of_month(calendar_shift(calendar_end_of_month(report_time), a_day));
  } else {
    std::abort();
  }
  schedule.unit_days = find_schedule_type(schedule.type)->unit_days;
  return true;
}
