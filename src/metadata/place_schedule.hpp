#pragma once

#include <ctime>
#include <string>

#include "schedule/schedule.hpp"

/// Places a completed schedule in the unit that holds the calendar time `t`: gives what aired the
/// metadata of the play log beside the schedule file `path`, announces blocks and patches in the
/// schedules that items name. Cancels the watchdog. Null when all went well, otherwise the message
/// of the pass that failed.
const char* place_schedule(Schedule& schedule, time_t t, const std::string& path);
