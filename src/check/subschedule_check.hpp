#pragma once

#include <vector>

#include "check/finding.hpp"
#include "check/written_schedule.hpp"

/// Patches in the schedules that items name, as a run does, and finds what is lost by that. Call it
/// after check_passes, and only if check_media returned true.
void check_subschedules(WrittenSchedule& written, std::vector<Finding>& findings);
