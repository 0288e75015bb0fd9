#pragma once

#include "schedule/schedule.hpp"

// The repairs that make a schedule consistent and complete before its unit is placed in the
// calendar. All of them write to standard error only.

/// Drops every item that starts after its end. Items of no length stay.
void remove_reversed_items(Schedule& schedule);

/// Cuts each item that runs into its successor at the successor's start. An item that holds a
/// later one whole loses all that lies behind that one's start. Always true.
bool fix_schedule_file(Schedule& schedule);

/// Fills every stretch of the unit that no item covers with the default item of its day, in
/// pieces that end at midnight at the latest. Arms the watchdog. Always true.
bool patch_schedule_default_items(Schedule& schedule);
