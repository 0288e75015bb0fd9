#pragma once

#include <string_view>

// The line syntax of schedule files.

/// Longest piece of a line, in bytes; a longer line is taken as several.
inline constexpr int longest_schedule_line = 1023;

enum class ScheduleLineKind {
  comment,     ///< empty, or "#" and anything
  type,        ///< "*" and a type
  section,     ///< a section's name and "{"
  name_value,  ///< anything else
};

struct ScheduleLine {
  ScheduleLineKind kind;
  std::string_view text;  ///< the type, the section's name, or the line
};

/// The line without its line end and leading blanks.
std::string_view schedule_line_text(std::string_view line);

/// What a top-level line is; `text` is as schedule_line_text gives it.
ScheduleLine classify_schedule_line(std::string_view text);

/// Whether a line opens a level of sections, or closes one.
bool opens_section(std::string_view text);
bool closes_section(std::string_view text);
