#pragma once

#include <cstdint>
#include <ctime>
#include <optional>
#include <set>
#include <string>
#include <tuple>

#include "platform/time/civil_date.hpp"
#include "schedule/schedule.hpp"

// The calendar time of a schedule position, worked out from nothing: every offset that the zone has
// around the position is tried, and of the times at which clocks then show the position the rule
// picks one. Slow, without memory, and without a look at where the clocks change.

/// Date and clock of t as seconds since 1970; a leap second has none.
inline std::optional<int64_t> shown_at(time_t t) {
  std::tm tm{};
  if (localtime_r(&t, &tm) == nullptr || tm.tm_sec > 59) {
    return std::nullopt;
  }
  return days_from_civil(int64_t{tm.tm_year} + 1900, tm.tm_mon + 1, tm.tm_mday) * 86400 +
         tm.tm_hour * 3600 + tm.tm_min * 60 + tm.tm_sec;
}

/// All times at which local clocks show that date and clock.
inline std::set<time_t> times_that_show(int64_t date_and_clock) {
  constexpr int64_t reach = 27 * 3600;
  constexpr int64_t step = 1800;
  std::set<int64_t> distances;
  for (int64_t t = date_and_clock - reach; t <= date_and_clock + reach; t += step) {
    if (const std::optional<int64_t> shown = shown_at(t)) {
      distances.insert(*shown - t);
    }
  }
  std::set<time_t> times;
  for (const int64_t distance : distances) {
    if (shown_at(date_and_clock - distance) == date_and_clock) {
      times.insert(date_and_clock - distance);
    }
  }
  return times;
}

/// Date and clock of a position, as seconds since 1970, by adding its parts to those of the base.
inline int64_t date_and_clock_of(const std::tm& base, uint64_t position) {
  const int64_t months = base.tm_mon + static_cast<int64_t>(position / 2678400);
  const int64_t day = base.tm_mday + static_cast<int64_t>(position / 86400 % 31);
  const int64_t year = int64_t{base.tm_year} + 1900 + months / 12;
  return days_from_civil(year, static_cast<int>(months % 12) + 1, static_cast<int>(day)) * 86400 +
         base.tm_hour * 3600 + base.tm_min * 60 + base.tm_sec +
         static_cast<int64_t>(position % 86400);
}

/// For schedules whose unit begins with a time that clocks show.
inline time_t plain_time_of(const Schedule& schedule, uint64_t position) {
  constexpr uint64_t most_months = 1073741823;  // no year reaches so far
  if (position / 2678400 > most_months) {
    return -1;
  }
  const time_t first = schedule.type == "endless"
                           ? *times_that_show(days_from_civil(2020, 1, 1) * 86400).begin()
                           : time_t{schedule.unit_start};
  std::tm base{};
  localtime_r(&first, &base);
  time_t best = -1;
  std::tuple<bool, int64_t> least;
  for (const time_t t : times_that_show(date_and_clock_of(base, position))) {
    std::tm tm{};
    localtime_r(&t, &tm);
    const int64_t distance = tm.tm_gmtoff - base.tm_gmtoff;
    const std::tuple rank(tm.tm_isdst != base.tm_isdst, distance < 0 ? -distance : distance);
    if (best == -1 || rank < least) {
      best = t;
      least = rank;
    }
  }
  return best;
}
