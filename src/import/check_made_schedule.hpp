#pragma once

#include <ctime>
#include <string>
#include <vector>

#include "check/finding.hpp"
#include "import/schedule_text.hpp"

/// What the checker finds in the made schedule, at the rows and columns of the table. With `media`,
/// it looks at the media files too. The unit is that of the report time (calendar time).
std::vector<Finding> check_made_schedule(const ScheduleText& made, bool media, time_t report_time);
