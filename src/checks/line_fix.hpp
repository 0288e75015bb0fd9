#pragma once

#include <string>
#include <string_view>

#include "checks/finding.hpp"
#include "checks/written_schedule.hpp"

// Advice that can be followed: the lines to write in place of those of the file. Pieces are parts
// of the file's content.

/// The line that holds the piece, with another text in place of the piece.
LineFix line_with(std::string_view content, int64_t line, std::string_view piece,
                  std::string_view replacement);

/// The same for a line that the parser returned. Blanks before its text stay.
LineFix line_with(const SchedulePart& part, std::string_view piece, std::string_view replacement);

/// The same for a value.
LineFix line_with(const WrittenSchedule& written, const WrittenValue& value,
                  std::string_view replacement);

/// A section that runs past the end of the unit, written as two: the first with the end of the
/// unit, and the second, from the unit's beginning, behind it. Empty if that cannot be written.
std::vector<LineFix> two_sections(const WrittenSchedule& written, const WrittenSection& section,
                                  bool is_block, std::string_view first_end,
                                  std::string_view second_start, std::string_view second_end);
