#include "schedule/report_window.hpp"

#include <algorithm>

#include "platform/time/calendar.hpp"
#include "schedule/run_options.hpp"

namespace {

using CalendarFunction = time_t (*)(time_t);

/// From the start of the period before the report time's period to the end of the period after it.
ReportWindow neighbouring_periods(const Schedule& schedule, CalendarFunction start_of,
                                  CalendarFunction end_of) {
  const auto report_time = static_cast<time_t>(run_options.report_time);
  return {
      std::max<time_t>(start_of(calendar_shift(start_of(report_time), -1)), schedule.unit_start),
      std::min<time_t>(end_of(calendar_shift(end_of(report_time), 1)), schedule.unit_end)};
}

}  // namespace

ReportWindow report_window(const Schedule& schedule) {
  if (run_options.pcn_month) {
    return neighbouring_periods(schedule, calendar_start_of_month, calendar_end_of_month);
  }
  if (run_options.pcn_week) {
    return neighbouring_periods(schedule, calendar_start_of_week, calendar_end_of_week);
  }
  return {schedule.unit_start, schedule.unit_end};
}
