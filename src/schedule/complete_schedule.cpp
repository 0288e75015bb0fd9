#include "schedule/complete_schedule.hpp"

#include "schedule/repair.hpp"

const char* complete_schedule(Schedule& schedule) {
  // Nothing after this can reverse an item again: clipping ends an item at a later one's start, and
  // what fills a gap is as long as the gap.
  remove_reversed_items(schedule);
  if (!fix_schedule_file(schedule)) {
    return "Somehow, fixing up the schedule file failed";
  }
  // The gaps are those of the repeating unit, not of a date, so they are filled before the unit is
  // placed in time.
  if (!patch_schedule_default_items(schedule)) {
    return "Somehow, patching default items into the schedule failed";
  }
  return nullptr;
}
