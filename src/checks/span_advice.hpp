#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "checks/written_schedule.hpp"
#include "platform/syntax/schedule_types.hpp"

// How to write a start and an end that were meant otherwise. All positions are schedule seconds.

struct SpanAdvice {
  std::string text;  ///< "; ..." behind the finding, or empty
  std::vector<LineFix> fix = {};
};

/// How to write a section that ends before it starts, or when it starts.
SpanAdvice advise_on_span(const WrittenSchedule& written, const WrittenSection& section,
                          const ScheduleType& type);

/// How to write the end of the section that lies at this position, which may be after the unit.
SpanAdvice advise_on_end(const WrittenSchedule& written, const WrittenSection& section,
                         uint64_t end, const ScheduleType& type);

/// The position of a written time; nothing for an invalid time.
std::optional<uint64_t> position_of(std::string_view text, const ScheduleType& type);

/// The same second of the next day, or of the day before, of the calendar.
uint64_t a_day_later(uint64_t position, const ScheduleType& type);
uint64_t a_day_earlier(uint64_t position, const ScheduleType& type);

/// The position as an end: midnight is hour 24 of the day before, in the calendar.
std::string text_of_end(uint64_t position, const ScheduleType& type);
