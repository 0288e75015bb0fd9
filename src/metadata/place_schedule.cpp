#include "metadata/place_schedule.hpp"

#include <utility>

#include "metadata/play_log.hpp"
#include "platform/metadata_handles.hpp"
#include "platform/system/activity.hpp"
#include "platform/system/messages.hpp"
#include "schedule/block_announce.hpp"
#include "schedule/report_window.hpp"
#include "schedule/subschedules.hpp"
#include "schedule/unit_times.hpp"

namespace {

/// The item that starts at that time, or null.
ScheduleItem* item_at(Schedule& schedule, int64_t timestamp) {
  if (timestamp < schedule.unit_start || timestamp >= schedule.unit_end) {
    return nullptr;
  }
  const auto offset = static_cast<uint64_t>(timestamp - schedule.unit_start);
  const auto found = schedule.schedule.find(offset);
  return found != schedule.schedule.end() ? &found->second : nullptr;
}

/// The entries of the play log beside the schedule file at whose time an item starts. Empty when
/// the log cannot be read.
PlayLog read_play_log_of(Schedule& schedule, const std::string& schedule_path) {
  PlayLog play_log;
  if (const FileContext context = bind_file_context(schedule_path.c_str())) {
    read_play_log(context.get(), play_log,
                  [&](int64_t timestamp) { return item_at(schedule, timestamp) != nullptr; });
  }
  return play_log;
}

/// Gives each item that aired in the schedule's current unit its metadata from the play log beside
/// the schedule file. An entry belongs to the item that starts at its time and has the same path.
void merge_play_log(Schedule& schedule, const std::string& schedule_path) {
  const Activity activity("reading the play log of");
  PlayLog play_log = read_play_log_of(schedule, schedule_path);
  for (auto& [timestamp, entry] : play_log) {
    ScheduleItem& item = *item_at(schedule, timestamp);
    if (item.item == entry.path) {
      item.metadata = std::move(entry.metadata);
    }
  }
}

}  // namespace

void place_in_unit(Schedule& schedule, time_t t, const std::string& path) {
  if (!compute_unit_times(schedule, t)) {
    fail_run("Somehow, unable to compute schedule unit times");
  }
  if (!path.empty()) {
    merge_play_log(schedule, path);
  }
  block_announce_subst(schedule);
}

void place_schedule(Schedule& schedule, time_t t, const std::string& path) {
  place_in_unit(schedule, t, path);
  patch_all_subschedules(schedule, report_window(schedule));
}
