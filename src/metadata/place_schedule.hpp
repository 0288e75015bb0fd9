#pragma once

#include <ctime>
#include <string>

#include "schedule/schedule.hpp"

/// Places a completed schedule in the unit that holds the calendar time `t`. Merges the play log
/// beside the schedule file `path`, announces blocks and patches in the schedules that items name.
/// Cancels the watchdog. A pass that fails ends the run with its message.
void place_schedule(Schedule& schedule, time_t t, const std::string& path);

/// The first part of place_schedule: all but the schedules that items name. Without a path, no play
/// log is merged.
void place_in_unit(Schedule& schedule, time_t t, const std::string& path);
