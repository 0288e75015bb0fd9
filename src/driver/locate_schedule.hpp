#pragma once

/// Settles run_options.schedule_path: as given or, before that, from the last "item" line of the
/// render-manager file that is given or that belongs to the channel. Most failures are reported
/// as fatal errors; false for those that have put their message on standard error alone.
bool locate_schedule();
