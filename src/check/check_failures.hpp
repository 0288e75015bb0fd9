#pragma once

/// The exit status when the check could not be made. It differs from the status for findings.
inline constexpr int could_not_check = 2;

/// From now on a failure that ends the run is reported on standard error, and the exit status is
/// `could_not_check`. Such failures are a shortage of the machine, output that cannot be written,
/// and the watchdog, even if the parent process ignores or blocks its signal.
void report_check_failures();
