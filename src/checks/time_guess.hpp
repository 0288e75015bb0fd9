#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/syntax/schedule_types.hpp"

// What the text of an invalid time was probably meant as.

/// A word of a text. Blanks and commas separate words.
struct TimeWord {
  size_t offset;
  std::string_view text;
};

std::vector<TimeWord> words_of(std::string_view text);

/// Whether the text is a valid time.
bool is_time(std::string_view text);

/// Whether such a number looks like an hour, a full stop and minutes: "18.00".
bool is_dotted_clock(std::string_view number);

/// The same, or without the full stop: "1800".
bool looks_like_clock(std::string_view number);

/// Whether the text is an hour: one or two digits.
bool is_hour(std::string_view number);

/// Writes a number that looks like a clock, or an hour, as a clock: "18:00".
std::string clock_of(std::string_view number);

/// Whether the number is a part of a day, as spreadsheets keep a time: "0.75".
bool is_part_of_day(std::string_view number);

/// The clock of a part of a day: "18:00" for "0.75".
std::string clock_of_part(std::string_view number);

/// The valid time that the text was probably meant as, in the order in which times are written.
std::optional<std::string> guess_time(std::string_view text);

/// A valid time with only the parts that a schedule of that type counts. Nothing if it lacks some.
std::optional<std::string> fitted_to_type(const std::string& text, const ScheduleType& type);
