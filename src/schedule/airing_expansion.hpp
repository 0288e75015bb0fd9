#pragma once

#include <cstdint>
#include <vector>

#include "schedule/schedule.hpp"
#include "schedule/schedule_time.hpp"

/// Where an airing is cut: the schedule seconds of each local midnight within it, in order. The
/// midnight after the unit's last day is second 0 of the unit. An item is not cut when its end has
/// no local time or lies before its start. `clock` belongs to the item's schedule.
std::vector<uint64_t> airing_cuts(UnitClock& clock, const ScheduleItem& item);

// For users of the library. No program calls what stands below.

/// Cuts an item of that schedule at these points. The result has one piece for each calendar day,
/// in order. The item's start moves to the start of the last piece. (The listings use airing_cuts
/// and copy no item.)
std::vector<ScheduleItem> expand_airing(const Schedule& schedule, ScheduleItem& item);
