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

/// Whether such a number looks like an hour and minutes: "18.00", or "1800" where `in_figures`.
bool looks_like_clock(std::string_view number, bool in_figures);

/// Whether the text is an hour: one or two digits.
bool is_hour(std::string_view number);

/// Writes a number that looks like a clock, or an hour, as a clock: "18:00".
std::string clock_of(std::string_view number);

/// A word with two or three numbers that is a date in the order of another country: "2026-03-05"
/// for "05.03.2026", "Dec 25" for "25/12". Nothing for other words.
std::optional<std::string> reordered_date(std::string_view word);

/// A word of an invalid time as it was probably meant: "Mon" for "Mo", "18:05" for "18:5". Empty
/// for a word that says nothing, such as "Uhr".
std::string corrected_word(std::string_view word);

/// The valid time that the text was probably meant as, in the order in which times are written.
std::optional<std::string> guess_time(std::string_view text);

/// A valid time with only the parts that a schedule of that type counts. Nothing if it lacks some.
std::optional<std::string> fitted_to_type(const std::string& text, const ScheduleType& type);
