#pragma once

#include <array>
#include <cstdint>

/// The number of days of each month in a leap year.
inline constexpr std::array<int, 12> month_lengths = {31, 29, 31, 30, 31, 30,
                                                      31, 31, 30, 31, 30, 31};

/// Days from 1970-01-01 to a date of the proleptic Gregorian calendar (ISO 8601). `month` is 1 to
/// 12. `day` may be past the end of the month; it then counts into the next month.
constexpr int64_t days_from_civil(int64_t year, int month, int day) {
  // Years are counted from March. The leap day comes last then, so month lengths repeat.
  const int64_t shifted_year = month <= 2 ? year - 1 : year;
  const int64_t era = (shifted_year >= 0 ? shifted_year : shifted_year - 399) / 400;
  const int64_t year_of_era = shifted_year - era * 400;
  const int64_t day_of_year = (153 * (month > 2 ? month - 3 : month + 9) + 2) / 5 + day - 1;
  const int64_t day_of_era = year_of_era * 365 + year_of_era / 4 - year_of_era / 100 + day_of_year;
  return era * 146097 + day_of_era - 719468;
}
