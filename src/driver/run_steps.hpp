#pragma once

#include <ctime>

#include "schedule/schedule.hpp"

// The steps of a run, in their order. Each ends the run with a fatal error when it fails.

/// Settles run_options.schedule_path: as given or, before that, from the last "item" line of the
/// render-manager file that is given or that belongs to the channel. False for failures that have
/// put their message on standard error alone.
bool locate_schedule();

/// Reads the schedule file.
void read_schedule(Schedule& schedule);

/// `message` is what a pass failed with; null when it did not fail.
void report_failed_pass(const char* message);

/// The stretch of calendar time that a document reports: items that start in [start, end). Its end
/// is the last second of a period and so lies outside: what starts with that second is not shown,
/// as listings have always had it.
struct ReportWindow {
  time_t start;
  time_t end;
};

/// The schedule's unit or, as the options ask, what lies in it of the months or weeks before, of
/// and after the report time.
ReportWindow report_window(const Schedule& schedule);

/// Prints the document, in CGI mode behind its Content-Type header (RFC 3875).
void print_document(Schedule& schedule, const ReportWindow& window);
