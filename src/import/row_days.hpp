#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "import/day_terms.hpp"
#include "platform/syntax/schedule_types.hpp"

/// What decides which days of a unit a row means.
struct DayRules {
  const ScheduleType* type;
  CellDate today;  ///< weekdays of months and years are those of its month and year
};

/// The days of the unit that the terms of a row mean, counted from 0 and in order. Nothing, with
/// `problem`, when there are none, or they cannot be days of such a schedule.
std::optional<std::vector<uint32_t>> days_of_terms(const std::vector<DayTerm>& terms,
                                                   const DayRules& rules, std::string& problem);

/// The day of the unit that comes `count` days after `day` in the calendar; the first day comes
/// after the last one. Nothing beyond the last day of an endless schedule.
std::optional<uint32_t> day_of_unit_after(uint32_t day, uint32_t count, const DayRules& rules,
                                          bool& is_next_unit);
