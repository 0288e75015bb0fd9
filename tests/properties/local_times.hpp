#pragma once

#include <ctime>
#include <string>

#include "properties/random.hpp"

/// One of all zones or, half of the time, one of those with the oddest clocks.
std::string random_zone(Random& random);

/// A time of 2000 to 2037 in the process's zone: anywhere, or within a day of a clock change and,
/// often, within seconds of it.
time_t random_report_time(Random& random);
