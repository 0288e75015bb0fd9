#pragma once

#include <ctime>

// The playout system's calendar functions, on calendar time (seconds since the Unix epoch) in the
// process's local time. Weeks begin on Sunday.
//
// calendar_start_of_X(t) is the first second of the period that holds t, in every zone: where a
// clock change skips midnight it is the first second after the gap, where midnight comes twice the
// earlier one. calendar_end_of_X(t) is the last second that lies in the period: where clocks are
// put back over midnight, that of its last date's second piece, and where a leap second ends the
// period, that one (23:59:60). A time too far off to have a local
// date is returned as it is.

time_t calendar_start_of_minute(time_t t);
time_t calendar_start_of_day(time_t t);
time_t calendar_end_of_day(time_t t);
time_t calendar_start_of_week(time_t t);
time_t calendar_end_of_week(time_t t);
time_t calendar_start_of_month(time_t t);
time_t calendar_end_of_month(time_t t);
time_t calendar_start_of_year(time_t t);
time_t calendar_end_of_year(time_t t);

/// A time moved by some seconds, as far as times reach.
time_t calendar_shift(time_t t, time_t seconds);

/// Fixes the zone for the whole run. With TZ unset the C library looks at the system's zone file
/// again at every conversion; naming that same file in TZ gives the same times forty times faster.
/// False, with errno set, when a zone file that may be there could not be read this time; to the
/// library that is the same as a zone that it does not know, and means UTC.
bool settle_local_zone();
