#pragma once

#include "schedule/prepared_subschedules.hpp"
#include "schedule/schedule.hpp"

/// Replaces each item whose file is itself a schedule by the items which that schedule airs within
/// the item's span. It does this for one level; call it again for schedules that the new items
/// name. True when an item was replaced. Arms the watchdog and cancels it at the end.
bool patch_in_subschedules(Schedule& schedule, PreparedSubschedules& subschedules);

/// Levels of schedules in schedules that a run patches in.
inline constexpr int most_subschedule_levels = 10;

/// Replaces subschedules level by level, at most `most_subschedule_levels`. Items that name deeper
/// ones stay, with a warning on standard error; the same happens when a schedule names itself.
/// Cancels the watchdog at the end.
void patch_all_subschedules(Schedule& schedule);
