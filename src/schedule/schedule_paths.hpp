#pragma once

#include <string>
#include <unordered_map>

#include "schedule/report_window.hpp"
#include "schedule/schedule.hpp"
#include "schedule/schedule_time.hpp"

/// Which paths of a schedule's items are schedule files. Each path is asked for once. Of a file
/// that airs only outside the report window no metadata is shown, so only its type is asked for.
class SchedulePaths {
 public:
  /// `clock` is the schedule's own.
  SchedulePaths(const Schedule& schedule, UnitClock& clock, const ReportWindow& window);

  bool is_schedule(const std::string& path);

 private:
  enum class Answer { unknown, yes, no };

  bool all_are_shown_;
  std::unordered_map<std::string, Answer> known_;  ///< `unknown`: airs in the window
};
