#pragma once

#include <vector>

#include "schedule/schedule.hpp"

/// Cuts an item at every local midnight that it spans: one piece for each calendar day, in order.
/// The midnight after the unit's last day is second 0 of the unit. An item whose end has no local
/// time, or lies before its start, is one piece. Advances the item's start to that of the last.
std::vector<ScheduleItem> expand_airing(Schedule& schedule, ScheduleItem& item);
