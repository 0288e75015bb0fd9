#pragma once

#include "schedule/schedule.hpp"

/// How reading a schedule file went.
enum class ScheduleFileResult {
  whole,
  not_opened,  ///< nothing was changed
  broken_off,  ///< a read failed, errno says how; the schedule is not to be used
};

/// Reads a schedule file: its type, default items, blocks and items, all times turned into
/// schedule seconds. Items and default slots of `schedule` are replaced; what the file gets wrong
/// is skipped.
ScheduleFileResult read_schedule_file(Schedule& schedule, const char* path);
