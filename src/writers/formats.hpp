#pragma once

#include <ctime>
#include <string>

#include "schedule/schedule.hpp"

// The writers, one function for each output format.

/// Prints the items that start in the report window (calendar time) as an XML document. Labels,
/// group names and entry names are not escaped, so markup in them stays markup.
void print_to_xml(Schedule& schedule, time_t window_start, time_t window_end);

/// Prints the announced items that start in the report window (calendar time) as a programme-guide
/// page: one self-contained HTML document with a table for each day.
void print_to_html(Schedule& schedule, time_t window_start, time_t window_end);

/// Prints the items that start in the report window (calendar time), announced or not, as one JSON
/// object (RFC 8259) on one line. A metadata entry without a name or a value ends the process by an
/// uncaught exception, before anything is printed.
void print_to_json(Schedule& schedule, time_t window_start, time_t window_end);

/// A calendar time as a JSON object with its local text (ISO 8601, empty without a local date) and
/// its number.
std::string json_time(time_t t);

/// Prints the announced items that start in the report window (calendar time) as a Rovi "LO
/// X-List": comma-separated, lines ended by CR LF, one row for each airing from today to 21 days
/// ahead.
void print_to_rovi(Schedule& schedule, time_t window_start, time_t window_end);

/// Prints the announced items that start in the report window (calendar time) as a Gracenote
/// listing: comma-separated, one row for each airing from today to 21 days ahead.
void print_to_gracenote(Schedule& schedule, time_t window_start, time_t window_end);
