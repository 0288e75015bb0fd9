#pragma once

#include <sys/resource.h>

/// Lets the run take 4 GiB of data in memory at most, whatever it is given to read, or less where
/// the system already grants less. More is refused.
void limit_memory();

/// Lets the run take that many seconds of processor time, or fewer where the system grants fewer;
/// then comes SIGXCPU, also before the system would kill the run without a word. The limit that
/// holds.
rlim_t limit_processor_time(rlim_t seconds);
