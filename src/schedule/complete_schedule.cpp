#include "schedule/complete_schedule.hpp"

#include "schedule/repair.hpp"

const char* complete_schedule(Schedule& schedule) {
  // No later pass can reverse an item again: a clipped item ends at a later item's start, and a
  // filler is as long as its gap.
  remove_reversed_items(schedule);
  if (!fix_schedule_file(schedule)) {
    return "Somehow, fixing up the schedule file failed";
  }
  // Gaps belong to the repeating unit, not to a date, so they are filled before the unit is placed
  // in time.
  if (!patch_schedule_default_items(schedule)) {
    return "Somehow, patching default items into the schedule failed";
  }
  return nullptr;
}
