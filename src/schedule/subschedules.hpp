#pragma once

#include "schedule/prepared_subschedules.hpp"
#include "schedule/schedule.hpp"

/// Replaces each item whose file is itself a schedule by what that schedule airs within the item's
/// span, one level deep; the rest of what it names is a matter of the next call. True when there
/// was such an item. Arms the watchdog, and cancels it at the end.
bool patch_in_subschedules(Schedule& schedule, PreparedSubschedules& subschedules);

/// Levels of schedules in schedules that a run patches in.
inline constexpr int most_subschedule_levels = 10;

/// Resolves subschedules level by level, as many as `most_subschedule_levels`. Deeper ones stay as
/// plain items, with a warning on standard error; so does a schedule that names itself. Cancels the
/// watchdog at the end.
void patch_all_subschedules(Schedule& schedule);
