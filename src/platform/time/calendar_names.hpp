#pragma once

#include <array>
#include <string_view>

// The English names of the calendar, as operators write them and as documents show them.

inline constexpr std::array<std::string_view, 7> weekday_names = {
    "Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};

inline constexpr std::array<std::string_view, 12> month_names = {
    "January", "February", "March",     "April",   "May",      "June",
    "July",    "August",   "September", "October", "November", "December"};

/// Letters of a name that stand for all of it.
inline constexpr size_t short_name_length = 3;
