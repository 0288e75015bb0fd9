#pragma once

#include <string>

#include "schedule/schedule.hpp"

/// Completes a schedule that was just read, with the passes below in their order. Arms the
/// watchdog. False when a pass failed; `error` is then its message.
bool complete_schedule(Schedule& schedule, std::string& error);

/// The same for the schedule of a run: a pass that fails ends the run with its message.
void complete_schedule(Schedule& schedule);

// The passes make a schedule consistent and complete before its unit is placed in the calendar. All
// of them print to standard error only.

/// Drops every item that ends before it starts. Items of length 0 stay.
void remove_reversed_items(Schedule& schedule);

/// Cuts each item that overlaps its successor at the successor's start. If the successor lies
/// inside the item, the part after the successor is lost too. Always true.
bool fix_schedule_file(Schedule& schedule);

/// Fills each gap of the unit with the default item of its day. No piece crosses midnight. Arms the
/// watchdog. Always true.
bool patch_schedule_default_items(Schedule& schedule);
