#pragma once

// A real-time alarm that nothing handles: the system ends a run that hangs in the passes over a
// schedule, so that a web request or a script never waits for one without end.

/// Gives the run 60 seconds from now.
void arm_watchdog();
void cancel_watchdog();
