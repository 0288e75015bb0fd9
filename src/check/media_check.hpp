#pragma once

#include <string>
#include <vector>

#include "check/finding.hpp"
#include "check/schedule_source.hpp"
#include "check/written_schedule.hpp"

/// Checks each file that the schedule names, and whether its items are announced. `id` is that of
/// the schedule's own file. Returns true if some of the files are schedules and a run can patch
/// them in: none leads back to itself, and none ends the run.
bool check_media(const WrittenSchedule& written, FileId id, std::vector<Finding>& findings);
