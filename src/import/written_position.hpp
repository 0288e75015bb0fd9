#pragma once

#include <cstdint>
#include <string>

#include "platform/syntax/schedule_types.hpp"

// The forms of time that the examples of schedules use.

/// "18:00", or "18:00:30" if there are seconds. Up to 86400, which is 24:00.
std::string clock_text(uint32_t second_of_day);

/// A day of the unit as people write it: "Mon", "day 5", "Mar 5", "2026-03-05"; empty for the only
/// day of a daily schedule.
std::string day_text(uint32_t day, const ScheduleType& type);

/// The same as a key of a defaults section: "mon", "dom5", "m3d5", "y2026m3d5", "day".
std::string day_key(uint32_t day, const ScheduleType& type);

/// A position of the unit, "Mon 18:00". Midnight at an end is hour 24 of the day before.
std::string start_text(uint64_t position, const ScheduleType& type);
std::string end_text(uint64_t position, const ScheduleType& type);
