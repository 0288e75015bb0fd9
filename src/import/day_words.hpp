#pragma once

#include <optional>
#include <string>
#include <string_view>

// The words for days and dates that people write in tables: English, German, French and Spanish.
// The functions take folded words.

/// Days of the week: bit 0 is Sunday.
using WeekdaySet = unsigned;
inline constexpr WeekdaySet all_weekdays = 0x7f;

/// The weekday that the word names (0 is Sunday).
std::optional<int> find_weekday_word(std::string_view word);

/// The days that a phrase such as "daily", "weekdays" or "weekends" names.
std::optional<WeekdaySet> find_weekday_group(std::string_view phrase);

/// "; did you mean 'monday'?" for a word that is nearly a day or days, or an empty text.
std::string advice_on_day_word(std::string_view word);

/// The month that the word names (1 is January).
std::optional<int> find_month_word(std::string_view word);

/// The number of an ordinal word: 1 to 5, or -1 for "last".
std::optional<int> find_ordinal_word(std::string_view word);

/// Whether the word stands behind the digits of an ordinal: "st" of "1st".
bool is_ordinal_ending(std::string_view word);

/// Whether the word stands between both ends of a range, or between the parts of a list.
bool is_range_word(std::string_view word);
bool is_list_word(std::string_view word);

/// Whether the word may stand in a date without a meaning: "de" of "5 de marzo".
bool is_date_filler(std::string_view word);
