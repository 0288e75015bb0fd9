#pragma once

#include <string>
#include <vector>

#include "check/finding.hpp"
#include "check/written_schedule.hpp"

/// Reads the file at the path into `written` and finds what its lines and sections do not say, or
/// not as they were meant. False when the file cannot be opened.
bool read_and_check_lines(WrittenSchedule& written, const std::string& path,
                          std::vector<Report>& reports);
