#pragma once

#include <cstdint>
#include <ctime>
#include <string_view>

#include "schedule/schedule.hpp"

/// A unit in the calendar.
struct Unit {
  time_t start;  ///< its first and last second, calendar time
  time_t end;
  int days;  ///< of the padded calendar
};

/// The unit that holds the calendar time `t` in a schedule of that type. That of an endless one is
/// the month of `t` and its neighbours. A type without unit aborts the process.
Unit unit_of(std::string_view type, time_t t);

/// Places the schedule in the unit that holds `report_time`: sets unit_start, unit_end and
/// unit_days. Always true.
bool compute_unit_times(Schedule& schedule, time_t report_time);
