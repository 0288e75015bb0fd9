#include "platform/time/local_stretches.hpp"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "platform/syntax/schedule_types.hpp"
#include "platform/time/civil_date.hpp"

namespace {

constexpr int longest_minute = 60;  // seconds, without a leap second

/// What local clocks show at one time.
struct Moment {
  int64_t ahead;
  long offset;
  int is_daylight_saving;
  const char* zone;
  bool is_leap_second;
};

std::optional<Moment> look_at(time_t t) {
  std::tm tm{};
  if (localtime_r(&t, &tm) == nullptr) {
    return std::nullopt;
  }
  return Moment{civil_seconds(tm) - t, tm.tm_gmtoff, tm.tm_isdst, tm.tm_zone,
                tm.tm_sec >= longest_minute};
}

bool belongs_to(const LocalStretch& stretch, const std::optional<Moment>& moment) {
  return moment && !moment->is_leap_second && moment->ahead == stretch.ahead &&
         moment->offset == stretch.offset &&
         moment->is_daylight_saving == stretch.is_daylight_saving && moment->zone == stretch.zone;
}

/// The step between two checks in which no pair of clock changes (there and back) can be missed. In
/// zones of the database, more than three days lie between two changes. A zone written out in TZ,
/// with its rules after a comma, may change twice in one night.
time_t safe_step() {
  constexpr time_t for_zone_files = 3 * time_t{seconds_per_day};
  constexpr time_t for_written_rules = 600;
  const char* zone = std::getenv("TZ");
  return zone != nullptr && std::strchr(zone, ',') != nullptr ? for_written_rules : for_zone_files;
}

/// The last time in [inside, outside) for which `holds` is true. It must be true at `inside` and
/// false at `outside`. `inside` may be the later one.
template <typename Holds>
time_t last_that_holds(time_t inside, time_t outside, Holds holds) {
  while (outside - inside > 1 || inside - outside > 1) {
    const time_t middle = inside + (outside - inside) / 2;
    (holds(middle) ? inside : outside) = middle;
  }
  return inside;
}

/// Removes from [first, last] the times without a local date. False when no time is left.
bool clip_to_dates(time_t& first, time_t& last) {
  const auto has_date = [](time_t t) { return look_at(t).has_value(); };
  const bool first_has_date = has_date(first);
  const bool last_has_date = has_date(last);
  if (!first_has_date && last_has_date) {
    first = last_that_holds(last, first, has_date);
  } else if (first_has_date && !last_has_date) {
    last = last_that_holds(first, last, has_date);
  }
  return first <= last && (first_has_date || last_has_date);
}

}  // namespace

int64_t civil_seconds(const std::tm& tm) {
  const int month = (tm.tm_mon % 12 + 12) % 12;
  const int64_t year = int64_t{tm.tm_year} + 1900 + (int64_t{tm.tm_mon} - month) / 12;
  return days_from_civil(year, month + 1, tm.tm_mday) * seconds_per_day + tm.tm_hour * 3600 +
         tm.tm_min * 60 + tm.tm_sec;
}

std::vector<LocalStretch> local_stretches(time_t first, time_t last) {
  std::vector<LocalStretch> stretches;
  if (!clip_to_dates(first, last)) {
    return stretches;
  }
  const time_t step = safe_step();
  for (time_t t = first; t <= last; ++t) {
    const std::optional<Moment> moment = look_at(t);
    if (!moment || moment->is_leap_second) {
      continue;
    }
    LocalStretch stretch{t,           t, moment->ahead, moment->offset, moment->is_daylight_saving,
                         moment->zone};
    const auto holds = [&](time_t later) { return belongs_to(stretch, look_at(later)); };
    while (stretch.last < last) {
      const time_t next = std::min(stretch.last + step, last);
      if (!holds(next)) {
        stretch.last = last_that_holds(stretch.last, next, holds);
        break;
      }
      stretch.last = next;
    }
    t = stretch.last;
    stretches.push_back(stretch);
  }
  return stretches;
}

std::vector<LocalStretch> stretches_around(int64_t first, int64_t last) {
  return local_stretches(first - longest_offset, last + longest_offset);
}

std::optional<time_t> time_of_civil(std::span<const LocalStretch> stretches, int64_t civil,
                                    int is_daylight_saving, long offset) {
  std::optional<time_t> nearest;
  std::pair<bool, long> nearest_distance;
  for (const LocalStretch& stretch : stretches) {
    const time_t t = civil - stretch.ahead;
    const std::pair distance(stretch.is_daylight_saving != is_daylight_saving,
                             std::abs(stretch.offset - offset));
    if (t >= stretch.first && t <= stretch.last && (!nearest || distance < nearest_distance)) {
      nearest = t;
      nearest_distance = distance;
    }
  }
  return nearest;
}

std::optional<time_t> normalised_time_of_civil(std::span<const LocalStretch> stretches,
                                               int64_t civil, long offset) {
  std::optional<time_t> nearest;
  std::optional<time_t> counted_on;
  long nearest_distance = 0;
  for (const LocalStretch& stretch : stretches) {
    const time_t t = civil - stretch.ahead;
    const long distance = std::abs(stretch.offset - offset);
    if (t > stretch.last) {
      counted_on = t;
    } else if (t >= stretch.first && (!nearest || distance < nearest_distance)) {
      nearest = t;
      nearest_distance = distance;
    }
  }
  return nearest ? nearest : counted_on;
}
