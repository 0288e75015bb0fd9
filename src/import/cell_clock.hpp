#pragma once

#include <optional>
#include <string>
#include <string_view>

/// How the cells of a table write numbers that stand for times.
struct NumberForm {
  bool are_raw = false;           ///< numbers of days, from a spreadsheet's own file
  bool has_point_clocks = false;  ///< some clocks of the table are written "18.30"
};

/// Whether the text is a clock with a point, "18.30", and cannot be a fraction of a day.
bool is_point_clock(std::string_view text);

/// Seconds from midnight to 86400 of a clock as people write it: "18:00", "18:00:30.5", "6 pm",
/// "18.00", "1800", "18h00", "18 Uhr", or a fraction of a day, "0.75". Rounded to the nearest
/// second. Nothing when the text is no clock; `problem` then says what could be meant by it, or is
/// empty.
std::optional<int> read_cell_clock(std::string_view text, const NumberForm& form,
                                   std::string& problem);

/// Seconds of a length of time: "1:30" (hours and minutes), "1:30:15", "90 min", "1h30", "PT1H30M",
/// a fraction of a day, or a number of the column's unit (in seconds; 0: it has none). The same
/// rules for failures.
std::optional<double> read_cell_duration(std::string_view text, int unit, const NumberForm& form,
                                         std::string& problem);

/// The number that the text is; a comma may stand for the point.
std::optional<double> read_cell_number(std::string_view text);
