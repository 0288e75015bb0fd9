#pragma once

/// The status of a run whose check could not be made: another one than that of findings.
inline constexpr int could_not_check = 2;

/// From now on what ends the run before its findings are printed says so on standard error, and the
/// status is `could_not_check`: a shortage of the machine, output that cannot be written, and the
/// watchdog, whatever the parent made of its signal.
void report_check_failures();
