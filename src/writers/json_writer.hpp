#pragma once

#include <ctime>
#include <string>

#include "schedule/schedule.hpp"

/// A calendar time as a JSON object of its local text (ISO 8601, empty without a local date) and
/// its number.
std::string json_time(time_t t);

/// Prints the items that start in the report window (calendar time), announced or not, as one JSON
/// object (RFC 8259) on one line. Nothing is printed before the document is whole: a metadata
/// entry without a name or a value ends the process by an uncaught exception.
void print_to_json(Schedule& schedule, time_t window_start, time_t window_end);
