#include "schedule/subschedules.hpp"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <utility>

#include "platform/system/activity.hpp"
#include "platform/system/messages.hpp"
#include "schedule/block_announce.hpp"
#include "schedule/run_options.hpp"
#include "schedule/schedule_paths.hpp"
#include "schedule/schedule_time.hpp"
#include "schedule/unit_times.hpp"
#include "schedule/watchdog.hpp"

namespace {

/// The length of the outer schedule's unit, by its type.
uint64_t unit_length_of(const Schedule& schedule) {
  const ScheduleType* type = find_schedule_type(schedule.type);
  return type != nullptr ? type->unit_length : 0;
}

/// The position in the outer schedule of a time in the subschedule's current unit. no_time if it
/// has none.
uint64_t position_in_outer(UnitClock& outer, UnitClock& subschedule, uint64_t position) {
  const time_t t = subschedule.time_of(position);
  return t == -1 ? no_time : outer.schedule_seconds_of(t);
}

Placements place_items(const ScheduleItems& items, UnitClock& clock, const Schedule& outer,
                       UnitClock& outer_clock) {
  Placements placements{clock.beginning(), {}, {}, {}};
  uint64_t latest_end = 0;
  for (const auto& [start, item] : items) {
    const uint64_t a = position_in_outer(outer_clock, clock, item.start);
    uint64_t b = position_in_outer(outer_clock, clock, item.end);
    if (a == no_time || b == no_time) {
      continue;
    }
    if (a > b) {
      b += unit_length_of(outer);  // the item runs past the end of the outer unit
    }
    placements.in_order.push_back({&item, a, b});
    latest_end = std::max(latest_end, b);
    placements.latest_ends.push_back(latest_end);
  }
  placements.first_starts.resize(placements.in_order.size());
  uint64_t first_start = no_time;
  for (size_t i = placements.in_order.size(); i-- > 0;) {
    first_start = std::min(first_start, placements.in_order[i].start);
    placements.first_starts[i] = first_start;
  }
  return placements;
}

/// The placements for the subschedule's unit that starts at `unit_start`. They are computed again
/// when the unit changes.
const Placements& placements_of(PreparedSubschedule& prepared, time_t unit_start,
                                const Schedule& outer, UnitClock& outer_clock) {
  UnitClock clock(prepared.type, unit_start);
  if (!prepared.placements || prepared.placements->beginning != clock.beginning()) {
    prepared.placements = place_items(prepared.items, clock, outer, outer_clock);
  }
  return *prepared.placements;
}

/// Copies the items of the subschedule's current unit into [begin, end) of the outer schedule. If
/// the outer unit is shorter, placements run through it several times.
void copy_items(Schedule& outer, const Placements& placements, uint64_t begin, uint64_t end) {
  const auto& [beginning, in_order, latest_ends, first_starts] = placements;
  // Items before `first` end too early, and items from `last` on start too late.
  const auto first = std::ranges::upper_bound(latest_ends, begin) - latest_ends.begin();
  const auto last = std::ranges::lower_bound(first_starts, end) - first_starts.begin();
  for (auto index = first; index < last; ++index) {
    const Placement& placement = in_order[static_cast<size_t>(index)];
    const uint64_t from = std::max(placement.start, begin);
    const uint64_t to = std::min(placement.end, end);
    if (from >= to) {
      continue;
    }
    ScheduleItem copy = *placement.item;
    copy.start = from;
    copy.end = to;
    if (outer.observer != nullptr) {
      outer.observer->inserting_from_schedule(from, to);
    }
    outer.schedule.insert_or_assign(from, std::move(copy));
  }
}

/// Fills the span of a removed item, one unit of the subschedule after the other.
void fill_span(Schedule& outer, UnitClock& outer_clock, PreparedSubschedule& prepared,
               const ScheduleItem& item) {
  uint64_t position = item.start;
  while (position < item.end) {
    const time_t t = outer_clock.time_of(position);
    if (t == -1) {
      return;
    }
    const Unit unit = unit_of(prepared.type, t);
    // Each round ends with the last second of the subschedule's unit, not after it.
    uint64_t round_end = outer_clock.schedule_seconds_of(unit.end);
    if (round_end <= position) {
      print_warning(Warning::pass, "WARNING: schedule wraparound.\n");
      if (outer.observer != nullptr) {
        outer.observer->wrapping_around();
      }
      const uint64_t unit_length = unit_length_of(outer);
      if (unit_length == 0) {
        std::abort();
      }
      round_end += unit_length;
      if (round_end <= position) {
        print_warning(Warning::pass, "Um, even after correction\n");
        return;
      }
    }
    copy_items(outer, placements_of(prepared, unit.start, outer, outer_clock), position,
               std::min(item.end, round_end));
    position = round_end;
  }
}

/// Replaces the item with that key by the items of the schedule in its file. The walk goes on at
/// `resume_at`. False, with the item unchanged, when that schedule cannot be prepared.
bool patch_in(Schedule& outer, UnitClock& outer_clock, PreparedSubschedules& subschedules,
              uint64_t key, uint64_t& resume_at) {
  const std::string path = outer.schedule.at(key).item;
  const Activity activity("patching in", path.c_str());
  resume_at = key + 1;
  PreparedSubschedule* prepared = subschedules.prepared(path);
  if (prepared == nullptr) {
    return false;
  }
  // Blocks of a subschedule are never announced. The blocks of the outer schedule are checked
  // again, because an earlier subschedule may have changed their items.
  block_announce_subst(outer);
  // Announcing a block may have removed this item or put the block in its place.
  const auto found = outer.schedule.find(key);
  if (found == outer.schedule.end() || found->second.item != path) {
    resume_at = key;
    return false;
  }
  if (outer.observer != nullptr) {
    outer.observer->replacing_by_schedule(found->second);
  }
  const ScheduleItem item = std::move(found->second);
  outer.schedule.erase(found);
  fill_span(outer, outer_clock, *prepared, item);
  resume_at = item.end;
  return true;
}

}  // namespace

bool patch_in_subschedules(Schedule& schedule, PreparedSubschedules& subschedules,
                           const ReportWindow& window) {
  if (run_options.debug_patch) {
    print_diagnostic("patching in subschedules\n");
  }
  const Activity activity("looking for subschedules in");
  arm_watchdog();
  UnitClock clock(schedule);
  SchedulePaths paths(schedule, clock, window);
  bool is_patched = false;
  auto it = paths.has_schedules() ? schedule.schedule.begin() : schedule.schedule.end();
  while (it != schedule.schedule.end()) {
    if (!paths.is_schedule(it->second.item)) {
      ++it;
      continue;
    }
    // Only keys stay valid: patching in and announcing blocks insert and erase items.
    uint64_t resume_at = 0;
    is_patched = patch_in(schedule, clock, subschedules, it->first, resume_at) || is_patched;
    it = schedule.schedule.lower_bound(resume_at);
  }
  cancel_watchdog();
  return is_patched;
}

void patch_all_subschedules(Schedule& schedule, const ReportWindow& window) {
  PreparedSubschedules subschedules;
  for (int level = 0; level < most_subschedule_levels; ++level) {
    if (!patch_in_subschedules(schedule, subschedules, window)) {
      return;
    }
  }
  print_warning(Warning::pass, "Warning: too many subschedules\n");
  if (schedule.observer != nullptr) {
    schedule.observer->reaching_last_level();
  }
}
