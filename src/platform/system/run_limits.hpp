#pragma once

#include <sys/resource.h>

// Limits on what a run may cost for any input. If the run is started with a limit of its own, lower
// or higher, that limit stays.

/// Lets the run use 4 GiB of data in memory. Larger requests fail.
void limit_memory();

/// Lets the run use that many seconds of processor time. Then SIGXCPU is sent. If the system would
/// kill the run at that point without a message, SIGPROF is sent shortly before. Returns the limit
/// in force.
rlim_t limit_processor_time(rlim_t seconds);

/// Sets the action of a signal (a handler, SIG_DFL or SIG_IGN) and unblocks it, so the parent's
/// settings do not matter. A handler is called only once: the default action is restored before it
/// runs.
void set_signal_action(int signal, void (*action)(int));
