#pragma once

#include <ctime>

#include "schedule/schedule.hpp"

/// Prints the announced items that start in the report window (calendar time) as a programme-guide
/// page: one self-contained HTML document with a table for each day.
void print_to_html(Schedule& schedule, time_t window_start, time_t window_end);
