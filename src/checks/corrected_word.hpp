#pragma once

#include <optional>
#include <string>
#include <string_view>

// What the words of an invalid time were probably meant as.

/// "am", "p.m." and the like, in lower case.
bool is_half_of_day(std::string_view word);

bool has_four_figures(std::string_view word);

/// A word with two or three numbers that is a date in the order of another country: "2026-03-05"
/// for "05.03.2026", "Dec 25" for "25/12". Nothing for other words.
std::optional<std::string> reordered_date(std::string_view word);

/// A word of an invalid time as it was probably meant: "Mon" for "Mo", "18:05" for "18:5". Empty
/// for a word that says nothing, such as "Uhr".
std::string corrected_word(std::string_view written);
