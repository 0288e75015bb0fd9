#pragma once

#include <string>

// Failures that end the run wherever they come up, below the driver, which says how errors are
// told.

/// Prints the message; need not return.
using FailureReporter = void (*)(const char* message);
void set_failure_reporter(FailureReporter reporter);

/// Ends the run with status 1 and the message: by default with "Error: " before it on standard
/// error.
[[noreturn]] void fail_run(const std::string& message);

/// To be called when a system call failed without which the document would come out poorer: fails
/// the run with "Unable to WHAT: ..." when that was for want of descriptors or memory (errno). What
/// a file lacks, it lacks in every run; what the machine lacks may be there in the next.
void fail_run_if_short(const std::string& what);
