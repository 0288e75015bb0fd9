#pragma once

#include <ctime>
#include <string>

#include "check/finding.hpp"

struct CheckOptions {
  bool media = true;       ///< look at the media files too
  time_t report_time = 0;  ///< calendar time
};

/// Checks the schedule file; "-" is standard input. `is_read` tells whether the file could be read;
/// if not, that is the only finding.
FileFindings check_schedule_file(const std::string& file, const CheckOptions& options,
                                 bool& is_read);
