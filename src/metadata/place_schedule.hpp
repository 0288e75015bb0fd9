#pragma once

#include <ctime>
#include <string>

#include "schedule/schedule.hpp"

/// Gives each item that aired in the schedule's current unit its metadata from the play log beside
/// the schedule file. An entry belongs to the item that starts at its time and has the same path.
void merge_play_log(Schedule& schedule, const std::string& schedule_path);

/// Places a completed schedule in the unit that holds the calendar time `t`. Merges the play log
/// beside the schedule file `path`, announces blocks and patches in the schedules that items name.
/// Cancels the watchdog. Returns null on success, otherwise the message of the pass that failed.
const char* place_schedule(Schedule& schedule, time_t t, const std::string& path);
