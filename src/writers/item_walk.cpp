#include "writers/item_walk.hpp"

bool item_in_window(const Schedule& schedule, time_t window_start, time_t window_end,
                    uint64_t start) {
  return time_in_window(schedule_seconds_to_time(schedule, start), window_start, window_end);
}
