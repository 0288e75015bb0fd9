#pragma once

#include <ctime>

#include "schedule/schedule.hpp"

/// Prints the items that start in the report window (calendar time) as an XML document. Labels,
/// group names and entry names go out as they are, so that markup in them stays markup.
void print_to_xml(Schedule& schedule, time_t window_start, time_t window_end);
