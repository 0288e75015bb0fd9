#include "driver/merge_play_log.hpp"

#include "metadata/play_log.hpp"
#include "platform/metadata_context.hpp"
#include "schedule/run_options.hpp"

namespace {

/// The play log beside the schedule file; empty when there is none to be read.
PlayLog read_play_log_of_schedule() {
  PlayLog play_log;
  metadata_v4_context* context = metadata_v4_context_create();
  if (bind_context(context, run_options.schedule_path.c_str())) {
    read_play_log(context, play_log);
  }
  metadata_v4_context_destroy(context);
  return play_log;
}

}  // namespace

void merge_play_log(Schedule& schedule) {
  const PlayLog play_log = read_play_log_of_schedule();
  for (const auto& [timestamp, entry] : play_log) {
    if (timestamp < schedule.unit_start || timestamp >= schedule.unit_end) {
      continue;
    }
    const auto offset = static_cast<uint64_t>(timestamp - schedule.unit_start);
    const auto found = schedule.schedule.find(offset);
    if (found != schedule.schedule.end() && found->second.item == entry.path) {
      found->second.metadata = entry.metadata;
    }
  }
}
