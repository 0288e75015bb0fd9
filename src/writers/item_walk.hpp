#pragma once

#include <ctime>

#include "schedule/schedule.hpp"
#include "schedule/schedule_time.hpp"

/// Whether a calendar time lies in the report window [window_start, window_end). -1 is not a time.
constexpr bool time_in_window(time_t t, time_t window_start, time_t window_end) {
  return t != -1 && window_start <= t && t < window_end;
}

/// Calls visit(item, time of its start) for each item in the report window, in airing order.
/// `clock` is the schedule's own.
template <typename Visit>
void walk_items(const Schedule& schedule, UnitClock& clock, time_t window_start, time_t window_end,
                Visit visit) {
  for (const auto& [start, item] : schedule.schedule) {
    const time_t t = clock.time_of(start);
    if (time_in_window(t, window_start, window_end)) {
      visit(item, t);
    }
  }
}

// For users of the library. No program calls what stands below.

/// Whether an item that starts at `start` schedule seconds belongs to the report window. Only the
/// start decides; an item is never shown in part.
bool item_in_window(const Schedule& schedule, time_t window_start, time_t window_end,
                    uint64_t start);
