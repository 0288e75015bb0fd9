#pragma once

#include <cstdint>
#include <vector>

#include "schedule/schedule.hpp"
#include "schedule/schedule_time.hpp"

/// Where an airing is cut: the schedule seconds of every local midnight that it spans, in order.
/// The midnight after the unit's last day is second 0 of the unit. An item whose end has no local
/// time, or lies before its start, is not cut. `clock` is that of the item's schedule.
std::vector<uint64_t> airing_cuts(UnitClock& clock, const ScheduleItem& item);

// For users of the library. No program calls what stands below.

/// Cuts an item of that schedule there: one piece for each calendar day, in order. Advances the
/// item's start to that of the last. (The listings go by the cuts and copy no item.)
std::vector<ScheduleItem> expand_airing(const Schedule& schedule, ScheduleItem& item);
