#pragma once

#include "schedule/schedule.hpp"

/// Resolves subschedules level by level, down to ten levels. Deeper ones stay as plain items, with
/// a warning on standard error; so does a schedule that names itself.
void patch_all_subschedules(Schedule& schedule);
