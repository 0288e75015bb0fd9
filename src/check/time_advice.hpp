#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "check/finding.hpp"
#include "platform/syntax/schedule_types.hpp"

struct TimeAdvice {
  FindingKind kind;
  size_t offset;  ///< in the text
  std::string text;
};

/// What is wrong, or probably not meant, in a written time of a schedule of that type.
std::vector<TimeAdvice> advise_on_time(std::string_view text, const ScheduleType& type);

/// Whether the text is only a number, which the reader takes as schedule seconds.
bool is_bare_number(std::string_view text);

/// Whether such a number looks like an hour and minutes: "18.00", or "1800" where `in_figures`.
bool looks_like_clock(std::string_view number, bool in_figures);

/// Writes a number that looks like a clock as a clock: "18:00".
std::string clock_of(std::string_view number);
