#pragma once

#include <sys/resource.h>

// What a run may cost, whatever it is given to read. Limits that it is started with hold instead,
// lower ones and higher ones.

/// Lets the run take 4 GiB of data in memory. More is refused.
void limit_memory();

/// Lets the run take that many seconds of processor time; then comes SIGXCPU or, where the system
/// would kill the run without a word, SIGPROF before that. The limit that holds.
rlim_t limit_processor_time(rlim_t seconds);

/// Sets what a signal does from now on (a handler, SIG_DFL or SIG_IGN) and lets it through,
/// whatever the parent made of it. A handler is called once: in it, the signal already has its
/// default action again.
void set_signal_action(int signal, void (*action)(int));
