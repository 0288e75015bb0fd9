#pragma once

#include <vector>

#include "check/finding.hpp"
#include "check/written_schedule.hpp"

/// Patches in the schedules that items name, as a run does, and finds what is lost on the way. To
/// be called behind check_passes, where check_media says that it can be done.
void check_subschedules(WrittenSchedule& written, std::vector<Finding>& findings);
