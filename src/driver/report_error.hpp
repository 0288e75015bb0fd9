#pragma once

// Fatal errors. Both reporters end the process with status 1: with a one-line message on standard
// error or, in CGI mode, with a whole plain-text response (RFC 3875) on standard output; on
// standard error also in CGI mode when part of the document is already written.

/// `message` is printed as it stands.
[[noreturn]] void report_error(const char* message);

/// The same for a printf format and its arguments, without a line break at its end.
[[noreturn, gnu::format(printf, 1, 2)]] void report_errorf(const char* format, ...);

/// Makes failures below the driver, and a run that finds no memory, end in the same way.
void report_failures();

/// What stands before the message of an error in CGI mode.
inline constexpr const char* error_response_header =
    "Content-Type: text/plain\nX-Quorin disposition: Error\n\n";
