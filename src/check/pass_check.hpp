#pragma once

#include <ctime>
#include <vector>

#include "check/finding.hpp"
#include "check/written_schedule.hpp"

/// Prepares the schedule as a run does, up to the announced blocks, and finds what items and blocks
/// lose by that. The unit is that of the report time (calendar time).
void check_passes(WrittenSchedule& written, time_t report_time, std::vector<Finding>& findings);
