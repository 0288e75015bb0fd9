#pragma once

#include <ctime>
#include <span>
#include <string>
#include <string_view>

#include "schedule/schedule.hpp"

/// Prints the bar of arrows for one day and opens the table of its items. `day_start` is any time
/// of that day. Prints nothing for a type of schedule without days.
void html_open_day_table(Schedule& schedule, time_t day_start);

/// Appends the same to a page.
void append_day_table_opening(std::string& out, const Schedule& schedule, time_t day_start);

/// The lines of script that scroll to today's table in a schedule of that type.
std::span<const std::string_view> jump_script(std::string_view type);
