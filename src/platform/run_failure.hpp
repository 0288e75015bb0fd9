#pragma once

// Failures that end the run wherever they come up, below the driver, which says how errors are
// told.

/// Prints the message; need not return.
using FailureReporter = void (*)(const char* message);
void set_failure_reporter(FailureReporter reporter);

/// Ends the run with status 1 and the message, a printf format and its arguments: by default with
/// "Error: " before it on standard error.
[[noreturn, gnu::format(printf, 1, 2)]] void fail_run(const char* format, ...);

/// To be called when a system call failed without which the document would come out poorer: fails
/// the run when that was for want of descriptors or memory (errno). The format is for the name and
/// the system's error text. What a file lacks, it lacks in every run; what the machine lacks may be
/// there in the next.
[[gnu::format(printf, 1, 0)]] void fail_run_if_short(const char* format, const char* name);
