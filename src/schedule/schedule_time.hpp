#pragma once

#include <cstdint>
#include <ctime>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/time/local_clock.hpp"
#include "platform/time/local_stretches.hpp"
#include "schedule/schedule.hpp"

// Conversions between schedule seconds and calendar time (seconds since the Unix epoch).
// Broken-down times are local.

/// Schedule seconds of a broken-down local time, counted from the beginning of the type's unit.
/// Years before 2020 count as 2020. no_time when `type` is null or has no unit.
uint64_t broken_down_to_schedule_seconds(const ScheduleType* type, const std::tm& broken_down);

/// Schedule seconds of a calendar time. no_time when the time has no local date or the type has no
/// unit.
uint64_t time_to_schedule_seconds(const Schedule& schedule, time_t t);

/// Converts many positions of one schedule in both directions. The unit of the schedule must not
/// change meanwhile. Clock changes are looked up once for each week.
class UnitClock {
 public:
  explicit UnitClock(const Schedule& schedule);

  /// The clock of a schedule of that type whose unit starts at `unit_start`.
  UnitClock(std::string_view type, time_t unit_start);

  /// Calendar time of a schedule position in the unit that holds the report time. Positions count
  /// from the start of the unit; in an endless schedule always from 1 January 2020. If the clocks
  /// show an hour twice, the result is the time with the daylight-saving state of position 0. If
  /// both have that state, it is the one with the offset from UTC of position 0. -1 when clocks
  /// never show that time, because a clock change skips it. 0 when position 0 has no local time.
  time_t time_of(uint64_t schedule_seconds) {
    if (schedule_seconds != last_position_) {  // most items start where the one before ends
      last_time_ = find_time_of(schedule_seconds);
      last_position_ = schedule_seconds;
    }
    return last_time_;
  }

  /// The same as time_to_schedule_seconds.
  uint64_t schedule_seconds_of(time_t t);

  /// Null when the time has no local date. Valid until the next call.
  const std::tm* breakdown(time_t t) { return local_.breakdown(t); }

  /// Seconds east of UTC at position 0.
  long offset() const { return beginning_.offset; }

  /// The times of positions depend on this and on the zone.
  struct Beginning {
    time_t time = 0;      ///< of position 0
    bool exists = false;  ///< whether this time has a local date
    long offset = 0;      ///< seconds east of UTC
    bool operator==(const Beginning&) const = default;
  };
  const Beginning& beginning() const { return beginning_; }

 private:
  /// Days of the padded calendar that follow each other. Their clock changes are looked up at once.
  struct Days {
    uint64_t first;                       ///< number of the first one
    std::vector<int64_t> civil;           ///< civil seconds of each one's beginning
    std::vector<LocalStretch> stretches;  ///< that may contain their seconds
  };

  time_t find_time_of(uint64_t schedule_seconds);
  Days look_at_days(uint64_t first, uint64_t count) const;
  time_t time_in(const Days& days, uint64_t schedule_seconds) const;

  const ScheduleType* type_;  ///< null: unknown type
  Beginning beginning_;
  std::tm base_{};  ///< local time of position 0
  LocalClock local_;
  std::vector<std::optional<Days>> weeks_;  ///< nothing: not looked at yet
  std::optional<uint64_t> last_position_;   ///< that time_of was asked for
  time_t last_time_ = 0;                    ///< its answer
};

// For users of the library. No program calls what stands below.

/// The same as UnitClock::time_of, for one position.
time_t schedule_seconds_to_time(const Schedule& schedule, uint64_t schedule_seconds);
