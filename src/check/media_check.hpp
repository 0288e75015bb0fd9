#pragma once

#include <string>
#include <vector>

#include "check/finding.hpp"
#include "check/schedule_source.hpp"
#include "check/written_schedule.hpp"

/// Looks at each file that the schedule names, and at whether what airs is announced. `id` is that
/// of the schedule's own file. True when there are schedules among them and a run can patch them
/// in: none leads back to itself, and none ends the run.
bool check_media(const WrittenSchedule& written, FileId id, std::vector<Finding>& findings);
