#pragma once

#include "schedule/schedule.hpp"

/// Completes a schedule that was just read: drops reversed items, clips overlapping items and fills
/// the gaps of its unit with default items. Arms the watchdog. Returns null on success, otherwise
/// the message of the pass that failed.
const char* complete_schedule(Schedule& schedule);
