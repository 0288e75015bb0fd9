#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/syntax/schedule_types.hpp"

// How findings name days, positions and schedules.

/// The days of each month, January first, in a leap year.
inline constexpr std::array<uint64_t, 12> month_lengths = {31, 29, 31, 30, 31, 30,
                                                           31, 31, 30, 31, 30, 31};

/// "Tue"; 0 is Sunday.
std::string short_weekday(int weekday);

/// "a weekly schedule".
std::string a_schedule_of(std::string_view type);

/// A schedule position as a schedule of that type writes it: "Tue 01:00".
std::string written_position(uint64_t position, const ScheduleType& type);

/// The same for an end: midnight is hour 24 of the day before.
std::string written_end(uint64_t position, const ScheduleType& type);

/// "7 days", "years 2020 to 2034".
std::string unit_text(const ScheduleType& type);
