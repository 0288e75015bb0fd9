#pragma once

#include <string>
#include <vector>

#include "check/finding.hpp"
#include "check/schedule_source.hpp"
#include "check/written_schedule.hpp"

/// Looks at each file that the schedule names, and at whether what airs is announced. `id` is that
/// of the schedule's own file.
void check_media(const WrittenSchedule& written, FileId id, std::vector<Report>& reports);
