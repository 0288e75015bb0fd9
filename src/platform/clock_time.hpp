#pragma once

#include <optional>

#include "platform/time_scanner.hpp"

/// A time of day as it may be written in a schedule file.
struct ClockTime {
  int hour = 0;  ///< 0 to 24
  int minute = 0;
  int second = 0;
  long microseconds = 0;
};

/// Reads a clock that ends the text: "14:30", "6:05:30.5 pm", "6pm", 24:00 included.
std::optional<ClockTime> read_clock(TimeText rest);
