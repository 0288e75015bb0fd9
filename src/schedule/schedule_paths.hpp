#pragma once

#include <string>
#include <unordered_map>

#include "schedule/report_window.hpp"
#include "schedule/schedule.hpp"
#include "schedule/schedule_file_type.hpp"
#include "schedule/schedule_time.hpp"

/// Which paths of a schedule's items are schedule files. Each path is asked for once. Of a file
/// that airs only outside the report window no metadata is shown, so only its type is asked for.
class SchedulePaths {
 public:
  /// Asks for the paths of all items. `clock` is the schedule's own.
  SchedulePaths(const Schedule& schedule, UnitClock& clock, const ReportWindow& window);

  /// Whether some path is a schedule file. Most schedules have none.
  bool has_schedules() const { return has_schedules_; }

  bool is_schedule(const std::string& path) { return is_schedule(path, LaterUse::metadata); }

 private:
  bool is_schedule(const std::string& path, LaterUse later_use);

  std::unordered_map<std::string, bool> known_;
  bool has_schedules_ = false;
};
