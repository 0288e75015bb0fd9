#pragma once

#include <cstdint>
#include <ctime>
#include <string_view>

#include "schedule/schedule.hpp"

/// A unit in the calendar.
struct Unit {
  time_t start;  ///< first second, calendar time
  time_t end;    ///< last second
  int days;      ///< number of days in the padded calendar
};

/// The unit that holds the calendar time `t` in a schedule of that type. For an endless schedule it
/// is the month of `t` with the months before and after it. A type without unit aborts the process.
Unit unit_of(std::string_view type, time_t t);

/// Places the schedule in the unit that holds `report_time`: sets unit_start, unit_end and
/// unit_days. Always true.
bool compute_unit_times(Schedule& schedule, time_t report_time);
