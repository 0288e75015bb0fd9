#pragma once

#include <ctime>
#include <string>

#include "check/finding.hpp"

struct CheckOptions {
  bool media = true;       ///< look at the media files too
  time_t report_time = 0;  ///< calendar time
};

/// Checks the schedule file; "-" is standard input. `is_read` becomes false when it cannot be read,
/// which is a finding too.
FileFindings check_schedule_file(const std::string& file, const CheckOptions& options,
                                 bool& is_read);
