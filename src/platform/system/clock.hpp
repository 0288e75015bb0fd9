#pragma once

#include <ctime>

/// The current time, seconds since the Unix epoch. Test programs link a clock of their own
/// that stands still.
time_t current_time();
