#pragma once

#include <ctime>

#include "schedule/schedule.hpp"

/// Places the schedule's unit in the calendar: sets unit_start, unit_end and unit_days to the
/// unit that holds `report_time`. An endless schedule gets the month of the report time and its
/// neighbours. Always true; a schedule of a type without unit aborts the process.
bool compute_unit_times(Schedule& schedule, time_t report_time);
