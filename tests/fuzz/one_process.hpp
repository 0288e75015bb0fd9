#pragma once

#include <string>

// What lets many runs of the program follow each other in one process: a standard output that is
// kept, a clock that stands still, no alarm, and ends of the run that can be caught.

/// Thrown where the program would end with an error message.
struct RunEnded {
  std::string message;
};

/// Thrown where the program would end by a failed assertion.
struct AssertionFailed {
  std::string text;
};

/// What the run has printed on standard output.
extern std::string printed;

/// Makes the metadata library forget every file that earlier runs read.
void forget_media_files();
