#pragma once

#include <ctime>
#include <memory>

#include "platform/syntax/schedule_types.hpp"
#include "schedule/schedule.hpp"
#include "schedule/unit_times.hpp"

/// A schedule of that type without items, with its unit around the report time (calendar seconds).
inline std::unique_ptr<Schedule> schedule_around(const char* type, time_t report_time) {
  auto schedule = std::make_unique<Schedule>();
  schedule->type = type;
  compute_unit_times(*schedule, report_time);
  schedule->unit_length = find_schedule_type(type)->unit_length;
  return schedule;
}
