#include "schedule/complete_schedule.hpp"

#include <algorithm>
#include <iterator>

#include "platform/system/activity.hpp"
#include "platform/system/invariant.hpp"
#include "platform/system/messages.hpp"
#include "schedule/run_options.hpp"
#include "schedule/watchdog.hpp"

namespace {

using Items = ScheduleItems;

/// The end of the run of days from `day` on that have the same default item. Before the unit times
/// are known, the unit has no number of days and every run is one day long. This is why listings
/// keep default items apart at midnight.
uint64_t end_of_default_run(const Schedule& schedule, uint64_t day) {
  const std::string& item = schedule.defaults[day];
  uint64_t next = day + 1;
  const auto unit_days = static_cast<uint64_t>(schedule.unit_days);
  while (next < unit_days && schedule.defaults[next] == item) {
    ++next;
  }
  return next * seconds_per_day;
}

/// The position after an item that starts at the cursor.
uint64_t skip_item(const ScheduleItem& item, uint64_t cursor) {
  if (item.end > cursor) {
    return item.end;
  }
  if (run_options.debug_patch) {
    print_diagnostic("  warning: start greater than end %lu-%lu, item range %lu-%lu: %s\n", cursor,
                     item.end, item.start, item.end, item.item.c_str());
  }
  return std::max(cursor, item.end + 1);
}

/// Fills [start, end) with the default item of the day of `start`.
void patch_gap(Schedule& schedule, Items::iterator next, uint64_t start, uint64_t end) {
  if (schedule.observer != nullptr) {
    schedule.observer->filling_gap(start, end);
  }
  ScheduleItem& item = schedule.schedule.try_emplace(next, start)->second;
  item.duration = static_cast<double>(end - start);
  item.item = schedule.defaults[start / seconds_per_day];
  item.start = start;
  item.is_default = true;
  item.end = end;
}

}  // namespace

void remove_reversed_items(Schedule& schedule) {
  for (auto it = schedule.schedule.begin(); it != schedule.schedule.end();) {
    const ScheduleItem& item = it->second;
    if (as_signed(item.start) <= as_signed(item.end)) {
      ++it;
      continue;
    }
    if (run_options.debug_patch) {
      print_diagnostic("WARNING: item %s\n", item.item.c_str());
      print_diagnostic("       start > end (%lu > %lu)\n", item.start, item.end);
    }
    if (schedule.observer != nullptr) {
      schedule.observer->removing_reversed(item);
    }
    it = schedule.schedule.erase(it);
  }
}

bool fix_schedule_file(Schedule& schedule) {
  if (schedule.schedule.empty()) {
    return true;
  }
  auto current = schedule.schedule.begin();
  for (auto next = std::next(current); next != schedule.schedule.end(); current = next++) {
    INVARIANT(current->second.start == current->first,
              "(unsigned long long)cur->start == (unsigned long long)sci->first");
    INVARIANT(next->second.start == next->first,
              "(unsigned long long)next->start == (unsigned long long)scin->first");
    if (as_signed(next->second.start) < as_signed(current->second.end)) {
      print_diagnostic("Clipping overlapping item\n");
      if (schedule.observer != nullptr) {
        schedule.observer->clipping(current->second, next->first);
      }
      current->second.end = next->second.start;
    }
  }
  return true;
}

bool patch_schedule_default_items(Schedule& schedule) {
  if (run_options.debug_patch) {
    print_diagnostic("Patching default items into 0-%lu\n", schedule.unit_length);
  }
  const Activity activity("filling gaps of");
  arm_watchdog();
  uint64_t cursor = 0;
  auto next = schedule.schedule.begin();
  while (cursor < schedule.unit_length) {
    uint64_t run_end = end_of_default_run(schedule, cursor / seconds_per_day);
    while (next != schedule.schedule.end() && next->first < cursor) {
      ++next;
    }
    if (next != schedule.schedule.end()) {
      const ScheduleItem& item = next->second;
      INVARIANT(next->first == item.start,
                "(unsigned long long)sci->first == (unsigned long long)sci->second.start");
      INVARIANT(as_signed(item.start) <= as_signed(item.end),
                "sci->second.start <= sci->second.end");
      if (item.start <= cursor) {
        cursor = skip_item(item, cursor);
        continue;
      }
      run_end = std::min(run_end, item.start);
    }
    if (run_options.debug_patch) {
      print_diagnostic("  consideration: %lu-%lu\n", cursor, run_end);
    }
    if (run_end > cursor) {
      patch_gap(schedule, next, cursor, run_end);
      cursor = run_end;
    } else {
      ++cursor;
    }
  }
  return true;
}

bool complete_schedule(Schedule& schedule, std::string& error) {
  // No later pass can reverse an item again: a clipped item ends at a later item's start, and a
  // filler is as long as its gap.
  remove_reversed_items(schedule);
  if (!fix_schedule_file(schedule)) {
    error = "Somehow, fixing up the schedule file failed";
    return false;
  }
  // Gaps belong to the repeating unit, not to a date, so they are filled before the unit is placed
  // in time.
  if (!patch_schedule_default_items(schedule)) {
    error = "Somehow, patching default items into the schedule failed";
    return false;
  }
  return true;
}

void complete_schedule(Schedule& schedule) {
  if (std::string error; !complete_schedule(schedule, error)) {
    fail_run("%s", error.c_str());
  }
}
