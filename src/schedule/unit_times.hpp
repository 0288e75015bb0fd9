#pragma once

#include <cstdint>
#include <ctime>
#include <string_view>

#include "schedule/schedule.hpp"

struct UnitTimes {
  int32_t days;   ///< days of the calendar unit
  int64_t start;  ///< its first and last second, calendar time
  int64_t end;
};

/// The calendar unit of a type that holds `report_time`: for an endless schedule the month of the
/// report time and its neighbours. A type without unit aborts the process.
UnitTimes unit_times(std::string_view type, time_t report_time);

/// Places the schedule's unit in the calendar: sets unit_start, unit_end and unit_days to the
/// unit that holds `report_time`. Always true; a schedule of a type without unit aborts the
/// process.
bool compute_unit_times(Schedule& schedule, time_t report_time);
