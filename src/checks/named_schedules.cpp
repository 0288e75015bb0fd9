#include <sys/stat.h>

#include <algorithm>
#include <memory>
#include <set>

#include "checks/named_files.hpp"
#include "platform/system/messages.hpp"
#include "schedule/schedule_file_type.hpp"
#include "schedule/schedule_reader.hpp"
#include "schedule/subschedules.hpp"

namespace {

/// Null if the file cannot be read.
std::unique_ptr<Schedule> read_named_schedule(const std::string& path) {
  auto schedule = std::make_unique<Schedule>();
  if (!read_schedule_file(*schedule, path.c_str())) {
    fail_run_for_shortage("Unable to open %s: %s", path.c_str());
    return nullptr;
  }
  return schedule;
}

/// The paths that the schedule in that file names; none if it cannot be read. If it has no unit,
/// its path goes into `schedules`.
std::set<std::string> paths_in_schedule(const std::string& path, NamedSchedules& schedules) {
  const std::unique_ptr<Schedule> schedule = read_named_schedule(path);
  if (schedule == nullptr) {
    return {};
  }
  if (schedule->unit_length == 0) {
    schedules.without_unit = path;
    schedules.can_be_patched_in = false;
  }
  std::set<std::string> paths(schedule->defaults.begin(), schedule->defaults.end());
  for (const auto& [start, item] : schedule->schedule) {
    paths.insert(item.item);
  }
  return paths;
}

bool inner_leads_back(const std::string& path, NamedSchedules& schedules);

/// Whether the schedule, or one that it names, is one of those above it. If one has no unit,
/// its path goes into `schedules`.
bool leads_back(const std::string& path, FileId id, NamedSchedules& schedules) {
  // A schedule one level deeper stays unread, but what it names may lead back as well.
  constexpr size_t max_levels = most_subschedule_levels + 1;
  if (std::ranges::find(schedules.above, id) != schedules.above.end()) {
    return true;
  }
  const size_t level = schedules.above.size();
  const auto [known, is_new] = schedules.levels.emplace(id, level);
  if (level > max_levels || (!is_new && known->second <= level)) {
    return false;
  }
  known->second = level;  // nearer than before: more levels below it count
  schedules.above.push_back(id);
  bool is_circular = false;
  for (const std::string& inner : paths_in_schedule(path, schedules)) {
    is_circular = is_circular || inner_leads_back(inner, schedules);
  }
  schedules.above.pop_back();
  return is_circular;
}

bool inner_leads_back(const std::string& path, NamedSchedules& schedules) {
  struct stat status = {};
  return stat(path.c_str(), &status) == 0 && is_schedule_file(path) &&
         leads_back(path, {status.st_dev, status.st_ino}, schedules);
}

}  // namespace

void check_named_schedule(const std::string& path, FileId id, Place place,
                          NamedSchedules& schedules, FileFindings& found) {
  schedules.without_unit.clear();
  if (leads_back(path, id, schedules)) {
    schedules.can_be_patched_in = false;
    found.add(FindingKind::circular, place,
              "the schedule " + quoted(path) + " leads back to itself");
    return;
  }
  const std::unique_ptr<Schedule> schedule = read_named_schedule(path);
  if (schedule == nullptr) {
    found.add(FindingKind::bad_schedule, place, "the schedule " + quoted(path) + " cannot be read");
  } else if (find_schedule_type(schedule->type)->unit_length == 0) {
    found.add(FindingKind::bad_schedule, place,
              "the schedule " + quoted(path) + " has no unit, which ends the run");
  } else if (!schedules.without_unit.empty()) {
    found.add(FindingKind::bad_schedule, place,
              "the schedule " + quoted(path) + " leads to " + quoted(schedules.without_unit) +
                  ", which has no unit and ends the run");
  } else if (schedule->schedule.empty() &&
             std::ranges::all_of(schedule->defaults, &std::string::empty)) {
    found.add(FindingKind::bad_schedule, place,
              "the schedule " + quoted(path) + " holds nothing that airs");
  }
}
