#pragma once

#include "schedule/schedule.hpp"

/// patch_in_subschedules the plain way: each item has its schedule read and completed for itself,
/// and every item of that converted and compared, whatever it costs.
bool patch_in_subschedules_plainly(Schedule& schedule);
