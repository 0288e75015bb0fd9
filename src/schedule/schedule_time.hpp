#pragma once

#include <cstdint>
#include <ctime>
#include <string_view>
#include <vector>

#include "platform/local_clock.hpp"
#include "schedule/schedule.hpp"

// Conversions between schedule seconds and calendar time (seconds since the Unix epoch, broken
// down in local time).

/// Schedule seconds of a broken-down local time in a schedule of that type: the part of it that
/// repeats with the type's unit. Years before 2020 count as 2020. no_time for a type without unit.
uint64_t broken_down_to_schedule_seconds(std::string_view type, const std::tm& broken_down);

/// Schedule seconds of a calendar time, or no_time when it has no local time or the type no unit.
uint64_t time_to_schedule_seconds(const Schedule& schedule, time_t t);

/// Calendar time of a schedule position, in the one unit that holds the report time. -1 when no
/// consistent local time is found (it falls into a gap that a clock change leaves), 0 when the
/// unit's own start has no local time.
time_t schedule_seconds_to_time(const Schedule& schedule, uint64_t schedule_seconds);

/// The same conversions for many positions of one schedule, whose unit must not change meanwhile.
/// Days without a clock change near them are converted once; the results are the same.
class UnitClock {
 public:
  explicit UnitClock(const Schedule& schedule);

  /// As schedule_seconds_to_time.
  time_t time_of(uint64_t schedule_seconds);

  /// As time_to_schedule_seconds.
  uint64_t schedule_seconds_of(time_t t);

  /// Null when the time has no local date. Valid until the next call.
  const std::tm* breakdown(time_t t) { return local_.breakdown(t); }

 private:
  enum class DayKind : uint8_t { unknown, plain, irregular };
  struct Day {
    time_t first_second = 0;  ///< of a plain day
    DayKind kind = DayKind::unknown;
  };

  void look_at_day(Day& day, uint64_t first_position);

  const Schedule& schedule_;
  LocalClock local_;
  ConstantOffset offset_;
  std::vector<Day> days_;
};
