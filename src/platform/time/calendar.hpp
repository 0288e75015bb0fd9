#pragma once

#include <ctime>

// The playout system's calendar functions. They work on calendar time (seconds since the Unix
// epoch) in the process's local time. Weeks begin on Sunday.
//
// calendar_start_of_X(t) is the first second of the period that holds t. If a clock change skips
// midnight, it is the first second after the gap. If midnight comes twice, it is the earlier one.
//
// calendar_end_of_X(t) is the last second of the period. If clocks are put back over midnight, it
// is the last second in which they show the period's last date. If a leap second ends the period,
// it is that second (23:59:60).
//
// A time that has no local date, because it is too far away, is returned unchanged.

time_t calendar_start_of_minute(time_t t);
time_t calendar_start_of_day(time_t t);
time_t calendar_end_of_day(time_t t);
time_t calendar_start_of_week(time_t t);
time_t calendar_end_of_week(time_t t);
time_t calendar_start_of_month(time_t t);
time_t calendar_end_of_month(time_t t);
time_t calendar_start_of_year(time_t t);
time_t calendar_end_of_year(time_t t);

/// Adds seconds to a time. The result stays within the range of time_t.
time_t calendar_shift(time_t t, time_t seconds);

/// Fixes the time zone for the whole run. When TZ is unset, the C library checks the system's zone
/// file at every conversion. Naming the same file in TZ gives the same times forty times faster.
/// False, with errno set, when an existing zone file could not be read this time. The C library
/// would use UTC then, as for an unknown zone.
bool settle_local_zone();
