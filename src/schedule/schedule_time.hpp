#pragma once

#include <cstdint>
#include <ctime>
#include <string_view>
#include <vector>

#include "platform/time/local_clock.hpp"
#include "platform/time/local_stretches.hpp"
#include "schedule/schedule.hpp"

// Conversions between schedule seconds and calendar time (seconds since the Unix epoch, broken
// down in local time).

/// Schedule seconds of a broken-down local time in a schedule of that type: the part of it that
/// repeats with the type's unit. Years before 2020 count as 2020. no_time without a type, or for
/// one without unit.
uint64_t broken_down_to_schedule_seconds(const ScheduleType* type, const std::tm& broken_down);

/// Schedule seconds of a calendar time, or no_time when it has no local time or the type no unit.
uint64_t time_to_schedule_seconds(const Schedule& schedule, time_t t);

/// The conversions both ways for many positions of one schedule, whose unit must not change
/// meanwhile. How the clocks run on and around a day is found out once.
class UnitClock {
 public:
  explicit UnitClock(const Schedule& schedule);

  /// The clock of a schedule of that type whose unit starts then.
  UnitClock(std::string_view type, time_t unit_start);

  /// Calendar time of a schedule position, in the one unit that holds the report time. Positions
  /// count from the unit's start, those of an endless schedule from 1 January 2020, whatever its
  /// unit. Of an hour that comes twice it is the one under the daylight-saving state of that
  /// beginning and, where both are, the one whose offset from UTC is the beginning's. -1 when
  /// clocks never show that time (it falls into a gap that a clock change leaves), 0 when the
  /// beginning has no local time.
  time_t time_of(uint64_t schedule_seconds);

  /// As time_to_schedule_seconds.
  uint64_t schedule_seconds_of(time_t t);

  /// Null when the time has no local date. Valid until the next call.
  const std::tm* breakdown(time_t t) { return local_.breakdown(t); }

  /// Seconds east of UTC at position 0.
  long offset() const { return beginning_.offset; }

  /// What the times of positions depend on, beside the zone.
  struct Beginning {
    time_t time = 0;      ///< of position 0
    bool exists = false;  ///< whether that has a local time
    long offset = 0;      ///< seconds east of UTC
    bool operator==(const Beginning&) const = default;
  };
  const Beginning& beginning() const { return beginning_; }

 private:
  /// A day of the padded calendar.
  struct Day {
    int64_t civil = 0;                    ///< civil seconds of its beginning
    std::vector<LocalStretch> stretches;  ///< in which its seconds can lie; empty: not looked at
  };

  Day look_at_day(uint64_t day_number) const;
  time_t time_on(const Day& day, uint64_t second_of_day) const;

  const ScheduleType* type_;  ///< null: an unknown one
  Beginning beginning_;
  std::tm base_{};  ///< local time of position 0
  LocalClock local_;
  std::vector<Day> days_;
};

// For users of the library. No program calls what stands below.

/// As UnitClock::time_of, for one position.
time_t schedule_seconds_to_time(const Schedule& schedule, uint64_t schedule_seconds);
