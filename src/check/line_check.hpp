#pragma once

#include <string>
#include <vector>

#include "check/finding.hpp"
#include "check/written_schedule.hpp"

/// Reads the source of the file into its schedule and finds what its lines and sections do not say,
/// or not as they were meant; `with_media` looks whether the files are there where that matters.
void read_and_check_lines(WrittenSchedule& written, const std::string& file, bool with_media,
                          std::vector<Finding>& findings);
