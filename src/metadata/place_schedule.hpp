#pragma once

#include <ctime>
#include <string>

#include "schedule/schedule.hpp"

/// Gives each item that aired in the schedule's current unit its metadata from the play log beside
/// the schedule file. An entry belongs to the item that starts at its time and has the same path.
void merge_play_log(Schedule& schedule, const std::string& schedule_path);

/// Places a completed schedule in the unit that holds the calendar time `t`. Merges the play log
/// beside the schedule file `path`, announces blocks and patches in the schedules that items name.
/// Cancels the watchdog. A pass that fails ends the run with its message.
void place_schedule(Schedule& schedule, time_t t, const std::string& path);

/// The first part of place_schedule: all but the schedules that items name. Without a path, no play
/// log is merged.
void place_in_unit(Schedule& schedule, time_t t, const std::string& path);
