#pragma once

// A real-time alarm (SIGALRM) that ends a run which hangs in the passes over a schedule, so that a
// web request or a script never waits for one without end.

inline constexpr unsigned watchdog_seconds = 60;

/// Gives the run that time from now.
void arm_watchdog();
void cancel_watchdog();
