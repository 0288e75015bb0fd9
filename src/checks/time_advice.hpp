#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "checks/finding.hpp"
#include "platform/syntax/schedule_types.hpp"

struct TimeAdvice {
  FindingKind kind;
  size_t offset;  ///< in the text
  std::string text;
  std::string time = {};      ///< to write in place of the whole text; empty if unknown
  std::string end_time = {};  ///< the same for an end, where both are written in one text
  /// Where a clock of the next day was meant to be, in schedule seconds; perhaps after the unit.
  std::optional<uint64_t> position = {};
};

/// What is wrong, or probably not meant, in a written time of a schedule of that type.
std::vector<TimeAdvice> advise_on_time(std::string_view text, const ScheduleType& type);

/// Whether the text is only a number, which the reader takes as schedule seconds.
bool is_bare_number(std::string_view text);
