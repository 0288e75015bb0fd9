#include "schedule/subschedules.hpp"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "platform/metadata_context.hpp"
#include "schedule/block_announce.hpp"
#include "schedule/repair.hpp"
#include "schedule/run_options.hpp"
#include "schedule/schedule_reader.hpp"
#include "schedule/schedule_time.hpp"
#include "schedule/unit_times.hpp"
#include "schedule/watchdog.hpp"

namespace {

/// The last ungrouped "file type" of a set, which may be null.
std::string file_type_in(metadata_v4_metadata_context* set) {
  std::string file_type;
  const int32_t count = set != nullptr ? set->entry_count : 0;
  for (int32_t index = 0; index < count; ++index) {
    const metadata_v4_entry* entry = metadata_v4_metadata_context_read_entry(set, index);
    if (entry != nullptr && entry->name != nullptr && entry->value != nullptr &&
        entry->name == std::string_view("file type") &&
        metadata_v4_metadata_context_read_group_name(set, entry->group) == nullptr) {
      file_type = entry->value;
    }
  }
  return file_type;
}

std::string file_type_of(const std::string& path) {
  std::string file_type;
  metadata_v4_context* context = metadata_v4_context_create();
  if (bind_context(context, path.c_str())) {
    metadata_v4_metadata_context* set = metadata_v4_metadata_context_from_file(context, 0, nullptr);
    file_type = file_type_in(set);
    metadata_v4_metadata_context_destroy(set);
  }
  metadata_v4_context_destroy(context);
  return file_type;
}

/// Which paths of a schedule are schedule files; each is asked for once.
using KnownPaths = std::unordered_map<std::string, bool>;

/// The type only marks the file as a schedule; what kind it is, the file itself says.
bool is_schedule_file(const std::string& path, KnownPaths& known_paths) {
  const auto known = known_paths.find(path);
  if (known != known_paths.end()) {
    return known->second;
  }
  const bool is_schedule =
      !path.empty() && find_schedule_type_of_mime_type(file_type_of(path)) != nullptr;
  known_paths.emplace(path, is_schedule);
  return is_schedule;
}

/// Makes the record of the last subschedule a fresh one. Its thousands of default items keep their
/// storage for the next: a week may hand hundreds of items to one schedule.
void forget(Schedule& subschedule) {
  subschedule.blocks.clear();
  subschedule.global_default.clear();
  subschedule.unit_days = 0;
  subschedule.unit_length = 0;
}

/// Reads and completes a subschedule. Its own blocks are never announced; instead, those of the
/// outer schedule are looked at once more, as what an earlier subschedule brought may have
/// changed what they hold.
bool prepare(Schedule& subschedule, const char* path, Schedule& outer) {
  forget(subschedule);
  if (!read_schedule_file(subschedule, path)) {
    return false;
  }
  remove_reversed_items(subschedule);
  if (!fix_schedule_file(subschedule)) {
    return false;
  }
  if (!patch_schedule_default_items(subschedule)) {
    return false;
  }
  block_announce_subst(outer);
  return true;
}

/// The length of the outer schedule's unit, by its type.
uint64_t unit_length_of(const Schedule& schedule) {
  const ScheduleType* type = find_schedule_type(schedule.type);
  return type != nullptr ? type->unit_length : 0;
}

/// Where in the outer schedule a time of the subschedule's current unit falls; no_time if nowhere.
uint64_t position_in_outer(UnitClock& outer, UnitClock& subschedule, uint64_t position) {
  const time_t t = subschedule.time_of(position);
  return t == -1 ? no_time : outer.schedule_seconds_of(t);
}

/// Copies what the subschedule airs in its current unit into [begin, end) of the outer schedule.
void copy_items(Schedule& outer, UnitClock& outer_clock, const Schedule& subschedule,
                uint64_t begin, uint64_t end, uint64_t round_end) {
  UnitClock subschedule_clock(subschedule);
  for (const auto& [start, item] : subschedule.schedule) {
    const uint64_t a = position_in_outer(outer_clock, subschedule_clock, item.start);
    uint64_t b = position_in_outer(outer_clock, subschedule_clock, item.end);
    if (a == no_time || b == no_time) {
      continue;
    }
    if (a > b) {
      b += unit_length_of(outer);  // it runs past the end of the outer unit
    }
    const uint64_t from = std::max(a, begin);
    const uint64_t to = std::min({end, round_end, b});
    if (round_end <= a || b <= begin || from >= to) {
      continue;
    }
    ScheduleItem copy = item;
    copy.start = from;
    copy.end = to;
    outer.schedule.insert_or_assign(from, std::move(copy));
  }
}

/// Fills the span of an item that has been taken out, one unit of the subschedule after the other.
void fill_span(Schedule& outer, UnitClock& outer_clock, Schedule& subschedule,
               const ScheduleItem& item) {
  uint64_t position = item.start;
  while (position < item.end) {
    const time_t t = outer_clock.time_of(position);
    if (t == -1 || !compute_unit_times(subschedule, t)) {
      return;
    }
    // The round ends with the last second of the subschedule's unit, not behind it.
    uint64_t round_end = outer_clock.schedule_seconds_of(subschedule.unit_end);
    if (round_end <= position) {
      std::fprintf(stderr, "WARNING: schedule wraparound.\n");
      const uint64_t unit_length = unit_length_of(outer);
      if (unit_length == 0) {
        std::abort();
      }
      round_end += unit_length;
      if (round_end <= position) {
        std::fprintf(stderr, "Um, even after correction\n");
        return;
      }
    }
    copy_items(outer, outer_clock, subschedule, position, item.end, round_end);
    position = round_end;
  }
}

/// Replaces the item with that key by what the schedule in its file airs. `subschedule` is a record
/// to work in, and `resume_at` becomes the position at which to go on with the walk. False, with
/// the item in its place, when that schedule cannot be prepared.
bool patch_in(Schedule& outer, UnitClock& outer_clock, Schedule& subschedule, uint64_t key,
              uint64_t& resume_at) {
  const std::string path = outer.schedule.at(key).item;
  resume_at = key + 1;
  if (!prepare(subschedule, path.c_str(), outer)) {
    return false;
  }
  // Announcing a block may have taken the item away, or put the block into its place.
  const auto found = outer.schedule.find(key);
  if (found == outer.schedule.end() || found->second.item != path) {
    resume_at = key;
    return false;
  }
  const ScheduleItem item = std::move(found->second);
  outer.schedule.erase(found);
  fill_span(outer, outer_clock, subschedule, item);
  resume_at = item.end;
  return true;
}

}  // namespace

bool patch_in_subschedules(Schedule& schedule) {
  if (run_options.debug_patch) {
    std::fprintf(stderr, "patching in subschedules\n");
  }
  arm_watchdog();
  UnitClock clock(schedule);
  std::unique_ptr<Schedule> subschedule;  // most schedules need none
  KnownPaths known_paths;
  bool is_patched = false;
  for (auto it = schedule.schedule.begin(); it != schedule.schedule.end();) {
    if (!is_schedule_file(it->second.item, known_paths)) {
      ++it;
      continue;
    }
    // Only keys last: what is patched in and the blocks around it move the items.
    uint64_t resume_at = 0;
    if (!subschedule) {
      subschedule = std::make_unique<Schedule>();
    }
    is_patched = patch_in(schedule, clock, *subschedule, it->first, resume_at) || is_patched;
    it = schedule.schedule.lower_bound(resume_at);
  }
  cancel_watchdog();
  return is_patched;
}
