#pragma once

#include <ctime>
#include <string>
#include <vector>

#include "checks/finding.hpp"
#include "import/schedule_text.hpp"

/// What the checker finds in the made schedule, at the rows and columns of the table. With `media`,
/// it looks at the media files too; a schedule among them may not lead back to `output`, which the
/// made schedule will replace. The unit is that of the report time (calendar time).
std::vector<Finding> check_made_schedule(const ScheduleText& made, const std::string& output,
                                         bool media, time_t report_time);
