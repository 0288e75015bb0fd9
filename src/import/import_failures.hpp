#pragma once

/// The exit status when a table cannot be read or its schedule cannot be checked. It differs from
/// the status for mistakes in it.
inline constexpr int could_not_import = 2;

/// From now on a failure that ends the run is reported on standard error, and the exit status is
/// `could_not_import`: a shortage of the machine, output that cannot be written, and the watchdog.
/// TERM, INT and HUP end the run as usual. A draft is removed in each case.
void report_import_failures();
