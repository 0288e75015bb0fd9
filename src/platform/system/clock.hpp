#pragma once

#include <ctime>

/// The current time, seconds since the Unix epoch. Test programs link their own clock, which stands
/// still.
time_t current_time();
