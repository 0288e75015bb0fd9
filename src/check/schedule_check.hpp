#pragma once

#include <ctime>
#include <string>

#include "check/finding.hpp"

struct CheckOptions {
  bool media = true;       ///< look at the media files too
  time_t report_time = 0;  ///< calendar time
};

/// Checks the schedule file; "-" is standard input. What is wrong with it goes into `found`. False
/// when the file cannot be read; `found` then says why.
bool check_schedule_file(const std::string& file, const CheckOptions& options, FileFindings& found);
