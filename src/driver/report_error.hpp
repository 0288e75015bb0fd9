#pragma once

// Fatal errors. Both reporters end the process with status 1: with a one-line message on standard
// error or, in CGI mode, with a whole plain-text response (RFC 3875) on standard output.

/// Makes a run that finds no memory end in the same way, unless part of the document is already
/// written: then the message goes to standard error also in CGI mode.
void report_lack_of_memory();

/// `message` is printed as it stands.
[[noreturn]] void report_error(const char* message);

/// The same for a printf format and its arguments, without a line break at its end.
[[noreturn, gnu::format(printf, 1, 2)]] void report_errorf(const char* format, ...);
