#pragma once

#include <ctime>
#include <span>
#include <string>
#include <string_view>

#include "schedule/schedule.hpp"

/// Prints one day's bar of arrows and opens the table of its items; `day_start` is a time of that
/// day. Prints nothing for a type of schedule that has no days.
void html_open_day_table(Schedule& schedule, time_t day_start);

/// Appends the same to a page.
void append_day_table_opening(std::string& out, const Schedule& schedule, time_t day_start);

/// The lines of script that take a viewer of such a schedule to today's table.
std::span<const std::string_view> jump_script(std::string_view type);
