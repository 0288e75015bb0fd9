#include "properties/local_times.hpp"

#include <array>
#include <vector>

#include "support/zone.hpp"

namespace {

constexpr time_t a_day = 86400;
constexpr time_t first_time = 946684800;  // 2000-01-01
constexpr time_t last_time = 2145916799;  // 2037-12-31

constexpr std::array<const char*, 19> odd_zones = {
    "Pacific/Apia",         // left out a day
    "Pacific/Kiritimati",   // 14 hours ahead of UTC
    "Australia/Lord_Howe",  // changes by half an hour
    "Antarctica/Troll",     // changes by two hours
    "Asia/Kathmandu",       // three quarters of an hour
    "Atlantic/Azores",      // has midnight twice
    "America/Havana",
    "Africa/Cairo",       // has no midnight
    "America/Sao_Paulo",  // has no midnight
    "Asia/Beirut",
    "Africa/Casablanca",  // winter time for a month a year
    "Europe/Dublin",      // daylight saving is negative
    "America/St_Johns",   // changed at one minute past midnight
    "Asia/Pyongyang",      "Europe/London",   "Europe/Berlin",
    "America/New_York",    "America/Caracas", "UTC",
};

long offset_at(time_t t) {
  std::tm tm{};
  localtime_r(&t, &tm);
  return tm.tm_gmtoff;
}

/// The first second of the next clock change within a year, or t when there is none.
time_t next_clock_change(time_t t) {
  for (time_t before = t; before < t + 366 * a_day; before += a_day) {
    if (offset_at(before) == offset_at(before + a_day)) {
      continue;
    }
    time_t after = before + a_day;
    while (after - before > 1) {
      const time_t middle = before + (after - before) / 2;
      (offset_at(middle) == offset_at(before) ? before : after) = middle;
    }
    return after;
  }
  return t;
}

}  // namespace

std::string random_zone(Random& random) {
  static const std::vector<std::string> zones = all_zones();
  return random.chance(50) ? random.pick(odd_zones) : random.pick(zones);
}

time_t random_report_time(Random& random) {
  const time_t t = random.between(first_time, last_time - 366 * a_day);
  if (random.chance(30)) {
    return t;
  }
  const time_t reach = random.chance(50) ? 2 : a_day;
  return next_clock_change(t) + random.between(-reach, reach);
}
