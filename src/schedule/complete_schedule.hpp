#pragma once

#include "schedule/schedule.hpp"

/// Makes a schedule that was just read whole: drops reversed items, clips overlapping ones and
/// fills the gaps of its unit with default items. Arms the watchdog. Null when all went well,
/// otherwise the message of the pass that failed.
const char* complete_schedule(Schedule& schedule);
