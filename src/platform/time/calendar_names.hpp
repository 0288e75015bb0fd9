#pragma once

#include <array>
#include <string_view>

// The English names of weekdays and months, for reading and for printing.

inline constexpr std::array<std::string_view, 7> weekday_names = {
    "Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};

inline constexpr std::array<std::string_view, 12> month_names = {
    "January", "February", "March",     "April",   "May",      "June",
    "July",    "August",   "September", "October", "November", "December"};

/// The first letters of a name, which can stand for the whole name.
inline constexpr size_t short_name_length = 3;
