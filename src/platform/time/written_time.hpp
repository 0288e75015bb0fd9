#pragma once

#include <optional>

#include "platform/time/time_scanner.hpp"

/// A date in a schedule file. Any part may be missing.
struct WrittenDate {
  std::optional<int> year;
  std::optional<int> month;  ///< 1 to 12
  std::optional<int> day;
  std::optional<int> weekday;
  bool is_iso = false;  ///< YYYY-MM-DD; a "T" may follow it before the clock
};

/// The weekday (0 is Sunday) of a lower-case text, by its first three letters.
std::optional<int> find_weekday(std::string_view text);

/// Removes a date, a weekday or both from the front of the text. Nothing when it begins with
/// neither. The parts may be out of range.
std::optional<WrittenDate> take_date(TimeText& rest);

/// Whether all parts are in range: years 1900 to 9999, 31 days in every month.
bool in_range(const WrittenDate& date);

/// A time of day in a schedule file.
struct ClockTime {
  int hour = 0;  ///< 0 to 24
  int minute = 0;
  int second = 0;
  long microseconds = 0;
};

/// Reads a clock at the end of the text: "14:30", "6:05:30.5 pm", "6pm". 24:00 is allowed.
std::optional<ClockTime> read_clock(TimeText rest);
