#include "schedule/schedule_paths.hpp"

#include "schedule/schedule_file_type.hpp"

namespace {

/// Whether some of the item lies in the window. Items without a time count as inside.
bool reaches_into(const ScheduleItem& item, UnitClock& clock, const ReportWindow& window) {
  const time_t start = clock.time_of(item.start);
  const time_t end = clock.time_of(item.end);
  return start == -1 || end == -1 || (start < window.end && end > window.start);
}

/// Whether all items lie between two that reach into the window.
bool all_reach_into(const ScheduleItems& items, UnitClock& clock, const ReportWindow& window) {
  return items.empty() || (reaches_into(items.begin()->second, clock, window) &&
                           reaches_into(items.rbegin()->second, clock, window));
}

}  // namespace

SchedulePaths::SchedulePaths(const Schedule& schedule, UnitClock& clock, const ReportWindow& window)
    : all_are_shown_(all_reach_into(schedule.schedule, clock, window)) {
  if (all_are_shown_) {
    return;
  }
  for (const auto& [start, item] : schedule.schedule) {
    if (reaches_into(item, clock, window)) {
      known_.try_emplace(item.item, Answer::unknown);
    }
  }
}

bool SchedulePaths::is_schedule(const std::string& path) {
  const auto [known, is_new] = known_.try_emplace(path, Answer::unknown);
  if (known->second == Answer::unknown) {
    const bool is_shown = all_are_shown_ || !is_new;
    known->second = is_schedule_file(path, is_shown ? LaterUse::metadata : LaterUse::nothing)
                        ? Answer::yes
                        : Answer::no;
  }
  return known->second == Answer::yes;
}
