#pragma once

// Fatal errors. report_error and report_errorf end the process with status 1. They print a one-line
// message on standard error. In CGI mode they print a whole plain-text response (RFC 3875) on
// standard output instead, unless a part of the document is already written.

/// `message` is printed unchanged.
[[noreturn]] void report_error(const char* message);

/// The same for a printf format and its arguments. A line break is added.
[[noreturn, gnu::format(printf, 1, 2)]] void report_errorf(const char* format, ...);

/// Makes failures below the driver, and a lack of memory, end the run in the same way.
void report_failures();

/// Limits the run's processor time to ten minutes, in CGI mode to one minute. When this limit or
/// the watchdog ends the run, an error message names the limit and what the run was doing. Then the
/// process ends by the limit's signal.
void report_limits();

/// Printed before the message of an error in CGI mode.
inline constexpr const char* error_response_header =
    "Content-Type: text/plain\nX-Quorin disposition: Error\n\n";
