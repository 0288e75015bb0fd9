#pragma once

#include <ctime>
#include <string>

#include "checks/finding.hpp"
#include "checks/made_formats.hpp"
#include "checks/schedule_source.hpp"

struct CheckOptions {
  bool media = true;       ///< look at the media files too
  time_t report_time = 0;  ///< calendar time
  MadeFormats formats = {};
};

/// Checks the schedule file; "-" is standard input. What is wrong with it goes into `found`. False
/// when the file cannot be read; `found` then says why.
bool check_schedule_file(const std::string& file, const CheckOptions& options, FileFindings& found);

/// The same for a schedule that was read before, or made. Its findings are in `found` under its
/// path.
void check_schedule_source(ScheduleSource source, const CheckOptions& options, FileFindings& found);

/// Checks the zone in TZ. A zone that the machine does not know counts as UTC.
void check_zone(FileFindings& found);
