#pragma once

#include <string>
#include <vector>

#include "check/finding.hpp"
#include "check/written_schedule.hpp"

/// Looks at each file that the schedule at the path names, and at whether what airs is announced.
void check_media(const WrittenSchedule& written, const std::string& path,
                 std::vector<Report>& reports);
