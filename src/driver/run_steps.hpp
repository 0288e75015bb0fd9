#pragma once

#include "schedule/report_window.hpp"
#include "schedule/schedule.hpp"

// The steps of a run, in order. A step that fails ends the run with a fatal error.

/// Finds the schedule file and sets run_options.schedule_path. If a render-manager file or a
/// channel is given, the path comes from the last "item" line of that file or of the channel's
/// render-manager file; otherwise it is the path on the command line. Some failures only print to
/// standard error; for these the result is false.
bool locate_schedule();

/// Reads the schedule file.
void read_schedule(Schedule& schedule);

/// Prints the document. In CGI mode its Content-Type header (RFC 3875) comes first.
void print_document(Schedule& schedule, const ReportWindow& window);
