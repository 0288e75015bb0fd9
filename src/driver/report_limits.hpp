#pragma once

/// Limits the run's processor time to ten minutes, in CGI mode to one. When that limit or the
/// watchdog ends the run, an error first says which and what the run was at, in the form of all
/// errors (report_error.hpp); then the process ends by the limit's signal.
void report_limits();
