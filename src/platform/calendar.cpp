#include "platform/calendar.hpp"

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <optional>

#include "platform/civil_date.hpp"

namespace {

constexpr int64_t seconds_per_day = 86400;

// Further than any zone is from UTC, and than any clock change ever moved a clock.
constexpr int64_t search_reach = 27 * 3600;
// Clock changes lie further apart than this.
constexpr int64_t search_step = 3 * 3600;

std::optional<std::tm> local_time(int64_t t) {
  std::tm tm{};
  const time_t calendar_time = t;
  if (localtime_r(&calendar_time, &tm) == nullptr) {
    return std::nullopt;
  }
  return tm;
}

int64_t day_number(const std::tm& tm) {
  return days_from_civil(int64_t{tm.tm_year} + 1900, tm.tm_mon + 1, tm.tm_mday);
}

/// The local date of t as a day number, or nothing when it has none.
std::optional<int64_t> local_day(int64_t t) {
  const std::optional<std::tm> tm = local_time(t);
  return tm ? std::optional(day_number(*tm)) : std::nullopt;
}

bool is_midnight(int64_t t, int64_t day) {
  const std::optional<std::tm> tm = local_time(t);
  return tm && day_number(*tm) == day && tm->tm_hour == 0 && tm->tm_min == 0 && tm->tm_sec == 0;
}

/// The first second whose local date is `day` or, where a zone left that date out, a later one.
std::optional<int64_t> first_second_of_day(int64_t day) {
  const int64_t utc_midnight = day * seconds_per_day;
  // The local midnight, under each of the offsets from UTC in force around it.
  std::optional<int64_t> earliest;
  for (int64_t t = utc_midnight - search_reach; t <= utc_midnight + search_reach;
       t += search_step) {
    const std::optional<std::tm> tm = local_time(t);
    if (!tm) {
      continue;  // the ends of time are near
    }
    const int64_t candidate = utc_midnight - tm->tm_gmtoff;
    if ((!earliest || candidate < *earliest) && is_midnight(candidate, day)) {
      earliest = candidate;
    }
  }
  if (earliest) {
    return earliest;
  }
  // No clock showed that midnight: the day begins where the gap ends.
  int64_t before = utc_midnight - search_reach;
  int64_t after = utc_midnight + search_reach;
  while (after - before > 1) {
    const int64_t middle = before + (after - before) / 2;
    const std::optional<int64_t> middle_day = local_day(middle);
    if (!middle_day) {
      return std::nullopt;
    }
    (*middle_day < day ? before : after) = middle;
  }
  return after;
}

enum class Period { day, week, month, year };

/// The first day of the period that lies `ahead` (0 or 1) periods after the one that holds tm.
int64_t first_day_of_period(const std::tm& tm, Period period, int ahead) {
  const int64_t year = int64_t{tm.tm_year} + 1900;
  switch (period) {
    case Period::day:
      return day_number(tm) + ahead;
    case Period::week:
      return day_number(tm) - tm.tm_wday + ahead * 7;
    case Period::month:
      return tm.tm_mon + ahead == 12 ? days_from_civil(year + 1, 1, 1)
                                     : days_from_civil(year, tm.tm_mon + 1 + ahead, 1);
    case Period::year:
      break;
  }
  return days_from_civil(year + ahead, 1, 1);
}

/// Whether an error says nothing about the file that it hit.
bool is_passing(int error) {
  return error == EIO || error == EINTR || error == ENOMEM || error == EMFILE || error == ENFILE;
}

time_t start_of_period(time_t t, Period period) {
  const std::optional<std::tm> tm = local_time(t);
  return tm ? first_second_of_day(first_day_of_period(*tm, period, 0)).value_or(t) : t;
}

time_t end_of_period(time_t t, Period period) {
  const std::optional<std::tm> tm = local_time(t);
  const std::optional<int64_t> next =
      tm ? first_second_of_day(first_day_of_period(*tm, period, 1)) : std::nullopt;
  return next ? *next - 1 : t;
}

}  // namespace

time_t calendar_start_of_minute(time_t t) {
  const std::optional<std::tm> tm = local_time(t);
  return tm ? t - tm->tm_sec : t;
}

time_t calendar_start_of_day(time_t t) {
  return start_of_period(t, Period::day);
}

time_t calendar_end_of_day(time_t t) {
  return end_of_period(t, Period::day);
}

time_t calendar_start_of_week(time_t t) {
  return start_of_period(t, Period::week);
}

time_t calendar_end_of_week(time_t t) {
  return end_of_period(t, Period::week);
}

time_t calendar_start_of_month(time_t t) {
  return start_of_period(t, Period::month);
}

time_t calendar_end_of_month(time_t t) {
  return end_of_period(t, Period::month);
}

time_t calendar_start_of_year(time_t t) {
  return start_of_period(t, Period::year);
}

time_t calendar_end_of_year(time_t t) {
  return end_of_period(t, Period::year);
}

time_t calendar_shift(time_t t, time_t seconds) {
  time_t shifted = 0;
  if (__builtin_add_overflow(t, seconds, &shifted)) {
    return seconds < 0 ? std::numeric_limits<time_t>::min() : std::numeric_limits<time_t>::max();
  }
  return shifted;
}

bool settle_local_zone() {
  if (setenv("TZ", ":/etc/localtime", 0) != 0) {
    return false;
  }
  errno = 0;
  tzset();
  return !is_passing(errno);
}
