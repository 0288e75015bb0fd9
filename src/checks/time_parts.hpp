#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/time/written_time.hpp"

/// What a written time consists of.
struct TimeParts {
  WrittenDate date = {};       ///< empty if the text is only a clock
  ClockTime clock = {};        ///< midnight if the text is only a date
  std::string date_text = {};  ///< in lower case, as is the other text
  std::string clock_text = {};
};

/// The parts of a valid time. Nothing for a number of seconds and for an invalid time.
std::optional<TimeParts> parts_of_time(std::string_view text);
