#pragma once

#include <ctime>
#include <string>

// Texts of dates and times, always in local time.

std::string time_to_iso8601(time_t t);  ///< "2024-03-05T14:30:00+0100" (ISO 8601)
std::string time_to_date(time_t t);     ///< "2024-03-05"
std::string time_to_clock(time_t t);    ///< "14:30"

/// Whole minutes from one time to another, both cut to the minute, as unsigned decimal text. A
/// negative number becomes a very large one.
std::string minutes_between(time_t start, time_t end);

const char* month_name(int month);    ///< 0 is "January"; empty out of range
const char* day_name(int weekday);    ///< 0 is "Sunday"; empty out of range
const char* ordinal_suffix(int day);  ///< "st", "nd", "rd" or "th"
