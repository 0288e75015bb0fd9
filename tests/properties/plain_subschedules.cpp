#include "properties/plain_subschedules.hpp"

#include <algorithm>
#include <cstdio>
#include <memory>

#include "platform/metadata_handles.hpp"
#include "schedule/block_announce.hpp"
#include "schedule/complete_schedule.hpp"
#include "schedule/run_options.hpp"
#include "schedule/schedule_reader.hpp"
#include "schedule/schedule_time.hpp"
#include "schedule/unit_times.hpp"

namespace {

bool is_schedule_file(const std::string& path) {
  if (path.empty()) {
    return false;
  }
  std::string file_type;
  if (const FileContext context = bind_file_context(path.c_str())) {
    for_each_entry(read_metadata_set(context), [&](const metadata_v4_entry& entry) {
      if (entry.name == std::string_view("file type")) {
        file_type = entry.value;
      }
    });
  }
  return find_schedule_type_of_mime_type(file_type) != nullptr;
}

std::unique_ptr<Schedule> prepared(const std::string& path) {
  auto schedule = std::make_unique<Schedule>();
  if (!read_schedule_file(*schedule, path.c_str())) {
    return nullptr;
  }
  remove_reversed_items(*schedule);
  fix_schedule_file(*schedule);
  remove_reversed_items(*schedule);
  patch_schedule_default_items(*schedule);
  remove_reversed_items(*schedule);
  return schedule;
}

uint64_t outer_position(const Schedule& outer, const Schedule& subschedule, uint64_t position) {
  const time_t t = schedule_seconds_to_time(subschedule, position);
  return t == -1 ? no_time : time_to_schedule_seconds(outer, t);
}

void copy_round(Schedule& outer, const Schedule& subschedule, uint64_t begin, uint64_t end,
                uint64_t round_end) {
  const uint64_t unit_length = find_schedule_type(outer.type)->unit_length;
  for (const auto& [start, item] : subschedule.schedule) {
    const uint64_t a = outer_position(outer, subschedule, item.start);
    uint64_t b = outer_position(outer, subschedule, item.end);
    if (a == no_time || b == no_time) {
      continue;
    }
    b += a > b ? unit_length : 0;
    ScheduleItem copy = item;
    copy.start = std::max(a, begin);
    copy.end = std::min({end, round_end, b});
    if (round_end > a && b > begin && copy.start < copy.end) {
      outer.schedule[copy.start] = copy;
    }
  }
}

void fill(Schedule& outer, Schedule& subschedule, uint64_t begin, uint64_t end) {
  const uint64_t unit_length = find_schedule_type(outer.type)->unit_length;
  for (uint64_t position = begin; position < end;) {
    const time_t t = schedule_seconds_to_time(outer, position);
    if (t == -1) {
      return;
    }
    compute_unit_times(subschedule, t);
    uint64_t round_end = time_to_schedule_seconds(outer, subschedule.unit_end);
    if (round_end <= position) {
      std::fprintf(stderr, "WARNING: schedule wraparound.\n");
      round_end += unit_length;
    }
    if (round_end <= position) {
      std::fprintf(stderr, "Um, even after correction\n");
      return;
    }
    copy_round(outer, subschedule, position, end, round_end);
    position = round_end;
  }
}

}  // namespace

bool patch_in_subschedules_plainly(Schedule& schedule) {
  if (run_options.debug_patch) {
    std::fprintf(stderr, "patching in subschedules\n");
  }
  bool is_patched = false;
  for (auto it = schedule.schedule.begin(); it != schedule.schedule.end();) {
    const auto [key, item] = *it;
    ++it;
    if (!is_schedule_file(item.item)) {
      continue;
    }
    const auto subschedule = prepared(item.item);
    if (!subschedule) {
      continue;
    }
    block_announce_subst(schedule);
    const auto found = schedule.schedule.find(key);
    if (found == schedule.schedule.end() || found->second.item != item.item) {
      it = schedule.schedule.lower_bound(key);
      continue;
    }
    const uint64_t end = found->second.end;
    schedule.schedule.erase(found);
    fill(schedule, *subschedule, key, end);
    it = schedule.schedule.lower_bound(end);
    is_patched = true;
  }
  return is_patched;
}
