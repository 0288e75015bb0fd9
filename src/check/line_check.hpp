#pragma once

#include <string>
#include <vector>

#include "check/finding.hpp"
#include "check/written_schedule.hpp"

/// Reads the source of the file into its schedule. Finds lines and sections that have no effect, or
/// probably not the effect that was meant. With `with_media`, it also checks whether files exist,
/// where that matters.
void read_and_check_lines(WrittenSchedule& written, const std::string& file, bool with_media,
                          std::vector<Finding>& findings);
