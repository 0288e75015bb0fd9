#pragma once

#include <cstdint>
#include <ctime>
#include <optional>
#include <span>
#include <vector>

// How the clocks of the local zone run. Civil seconds are a local date and clock counted in seconds
// since 1970-01-01 00:00 as if there were no other zone: days_from_civil x 86400 + second of the
// day. They stay ahead of calendar time by the same number of seconds until the clocks change.

/// A stretch of calendar time without a clock change, leap seconds included among the changes.
struct LocalStretch {
  time_t first;  ///< calendar time, both ends included
  time_t last;
  int64_t ahead;           ///< civil seconds less calendar time
  long offset;             ///< seconds east of UTC, which leap seconds do not change
  int is_daylight_saving;  ///< as tm_isdst
  const char* zone;        ///< abbreviation
};

/// Further than any zone is from UTC: all calendar times of a civil second lie within this of it.
inline constexpr time_t longest_offset = 27 * 3600;

/// Civil seconds of a broken-down time, whose month and day of month may be out of range.
int64_t civil_seconds(const std::tm& tm);

/// The stretches of [first, last], in order; none where times have no local date. A leap second
/// (23:59:60) belongs to none. Finds every change of the zones of the database. Of two changes that
/// a zone written out in TZ puts less than ten minutes apart it may see neither.
std::vector<LocalStretch> local_stretches(time_t first, time_t last);

/// The stretches in which the civil seconds [first, last] can lie.
std::vector<LocalStretch> stretches_around(int64_t first, int64_t last);

/// When clocks show that civil second: under the daylight-saving state asked for if they do so
/// under it at all, and of several times the one whose offset is nearest to `offset`. Nothing when
/// a clock change skips it.
std::optional<time_t> time_of_civil(std::span<const LocalStretch> stretches, int64_t civil,
                                    int is_daylight_saving, long offset);

/// The same under either daylight-saving state. What a clock change skips is counted on from before
/// the change, as the C library does; nothing when there is no stretch to count from.
std::optional<time_t> normalised_time_of_civil(std::span<const LocalStretch> stretches,
                                               int64_t civil, long offset);
