#pragma once

#include <ctime>
#include <optional>
#include <string>
#include <string_view>

#include "check/finding.hpp"
#include "check/made_formats.hpp"
#include "check/schedule_source.hpp"

struct CheckOptions {
  bool media = true;       ///< look at the media files too
  time_t report_time = 0;  ///< calendar time
  MadeFormats formats = {};
};

/// Checks the schedule file; "-" is standard input. What is wrong with it goes into `found`. False
/// when the file cannot be read; `found` then says why.
bool check_schedule_file(const std::string& file, const CheckOptions& options, FileFindings& found);

/// Checks the zone in TZ. A zone that the machine does not know counts as UTC.
void check_zone(FileFindings& found);

/// Tells what the schedule in the file airs at a moment, and why. The moment is a time as a
/// schedule file writes it, or "@" and seconds since 1970. Returns nothing if the moment is invalid
/// or the file cannot be read; `error` says why.
std::optional<std::string> explain_moment(const std::string& file, const std::string& moment,
                                          const CheckOptions& options, std::string& error);

/// The same for a schedule that was read before, or made. Its findings are in `found` under its
/// path.
void check_schedule_source(ScheduleSource source, const CheckOptions& options, FileFindings& found);

/// The story of a moment as a JSON object: the file, the moment, and each line's name and text.
std::string json_of_story(const std::string& file, std::string_view story);
