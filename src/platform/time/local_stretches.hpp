#pragma once

#include <cstdint>
#include <ctime>
#include <optional>
#include <span>
#include <vector>

// How the clocks of the local zone run. Civil seconds are a local date and clock, counted in
// seconds since 1970-01-01 00:00 as if there were no time zones: days_from_civil x 86400 + second
// of the day. Until the next clock change, their distance to calendar time stays the same.

/// A span of calendar time without a clock change. A leap second counts as a clock change.
struct LocalStretch {
  time_t first;  ///< calendar time; both ends belong to it
  time_t last;
  int64_t ahead;           ///< civil seconds minus calendar time
  long offset;             ///< seconds east of UTC; leap seconds do not change it
  int is_daylight_saving;  ///< like tm_isdst
  const char* zone;        ///< abbreviation
};

/// No zone is further from UTC. All calendar times of a civil second lie within this distance of
/// it.
inline constexpr time_t longest_offset = 27 * 3600;

/// Civil seconds of a broken-down time. Its month and day of month may be out of range.
int64_t civil_seconds(const std::tm& tm);

/// The stretches of [first, last], in order. Times without a local date and leap seconds (23:59:60)
/// belong to no stretch. Finds every clock change of zones in the database. In a zone written out
/// in TZ, two changes less than ten minutes apart may be missed.
std::vector<LocalStretch> local_stretches(time_t first, time_t last);

/// The stretches that may contain the civil seconds [first, last].
std::vector<LocalStretch> stretches_around(int64_t first, int64_t last);

/// The calendar time at which clocks show that civil second with that daylight-saving state. If no
/// time has this state, the other state is used. Of several times, the result is the one whose
/// offset is nearest to `offset`. Nothing when a clock change skips the civil second.
std::optional<time_t> time_of_civil(std::span<const LocalStretch> stretches, int64_t civil,
                                    int is_daylight_saving, long offset);

/// The same for either daylight-saving state. If a clock change skips the civil second, the result
/// is counted on from before the change, as the C library does. Nothing when there is no stretch to
/// count from.
std::optional<time_t> normalised_time_of_civil(std::span<const LocalStretch> stretches,
                                               int64_t civil, long offset);
