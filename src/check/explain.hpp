#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "checks/schedule_check.hpp"

/// Tells what the schedule in the file airs at a moment, and why. The moment is a time as a
/// schedule file writes it, or "@" and seconds since 1970. Returns nothing if the moment is invalid
/// or the file cannot be read; `error` says why.
std::optional<std::string> explain_moment(const std::string& file, const std::string& moment,
                                          const CheckOptions& options, std::string& error);

/// The story of a moment as a JSON object: the file, the moment, and each line's name and text.
std::string json_of_story(const std::string& file, std::string_view story);
