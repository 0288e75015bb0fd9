#pragma once

// A real-time alarm (SIGALRM) that ends a run which hangs in the passes over a schedule. Without
// it, a web request or a script could wait for ever.

inline constexpr unsigned watchdog_seconds = 60;

/// Starts the time again from now.
void arm_watchdog();
void cancel_watchdog();
