#pragma once

#include <ctime>
#include <string>

#include "schedule/schedule.hpp"

/// Reads a schedule file of which a table is to be made. False, with `error`, when that cannot be.
bool read_for_table(Schedule& schedule, const std::string& path, std::string& error);

/// The table of what airs in the unit of the report time (calendar time), after all passes. `path`
/// is that of the schedule.
std::string table_of_airing(Schedule& schedule, const std::string& path, char separator,
                            time_t report_time);
