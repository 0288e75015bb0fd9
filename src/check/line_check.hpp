#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "check/finding.hpp"
#include "check/written_schedule.hpp"

/// Where in a path a comment seems to begin that is part of it; npos: nowhere. Some files have such
/// names.
size_t comment_behind_path(std::string_view path);

/// The reference of XML, as "&amp;", that the text begins with, or nothing.
std::string_view reference_at(std::string_view text);

/// Reads the source of the file into its schedule and finds what its lines and sections do not say,
/// or not as they were meant; `with_media` looks whether the files are there where that matters.
void read_and_check_lines(WrittenSchedule& written, const std::string& file, bool with_media,
                          std::vector<Report>& reports);
