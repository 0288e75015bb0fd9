#include "schedule/schedule_paths.hpp"

#include <vector>

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

SchedulePaths::SchedulePaths(const Schedule& schedule, UnitClock& clock,
                             const ReportWindow& window) {
  const bool all_are_shown = all_reach_into(schedule.schedule, clock, window);
  std::vector<const std::string*> paths_outside;
  for (const auto& [start, item] : schedule.schedule) {
    if (all_are_shown || reaches_into(item, clock, window)) {
      is_schedule(item.item, LaterUse::metadata);
    } else {
      paths_outside.push_back(&item.item);
    }
  }
  for (const std::string* path : paths_outside) {
    is_schedule(*path, LaterUse::nothing);
  }
}

bool SchedulePaths::is_schedule(const std::string& path, LaterUse later_use) {
  const auto [known, is_new] = known_.try_emplace(path, false);
  if (is_new) {
    known->second = is_schedule_file(path, later_use);
    has_schedules_ = has_schedules_ || known->second;
  }
  return known->second;
}
