#pragma once

#include <vector>

#include "check/finding.hpp"
#include "check/written_schedule.hpp"

/// Makes the schedule of the text in `written` and finds what its lines and sections do not say, or
/// not as they were meant; `with_media` looks whether the files are there where that matters.
void read_and_check_lines(WrittenSchedule& written, bool with_media, std::vector<Report>& reports);
