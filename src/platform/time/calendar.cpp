#include "platform/time/calendar.hpp"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <optional>

#include "platform/syntax/schedule_types.hpp"
#include "platform/time/civil_date.hpp"
#include "platform/time/local_stretches.hpp"

namespace {

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

enum class Period { day, week, month, year };

/// The first day of the period of tm (`ahead` is 0) or of the next period (`ahead` is 1).
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

/// Whether an error may go away and says nothing about the file.
bool is_passing(int error) {
  return error == EIO || error == EINTR || error == ENOMEM || error == EMFILE || error == ENFILE;
}

/// The days of the period that holds t, as civil seconds [first, end).
struct CivilPeriod {
  int64_t first;
  int64_t end;
};

std::optional<CivilPeriod> period_of(time_t t, Period period) {
  const std::optional<std::tm> tm = local_time(t);
  if (!tm) {
    return std::nullopt;
  }
  return CivilPeriod{first_day_of_period(*tm, period, 0) * seconds_per_day,
                     first_day_of_period(*tm, period, 1) * seconds_per_day};
}

/// The earliest time on a date of the period. A clock change may skip its midnight or show it
/// twice.
time_t start_of_period(time_t t, Period period) {
  const std::optional<CivilPeriod> civil = period_of(t, period);
  if (!civil) {
    return t;
  }
  for (const LocalStretch& stretch : stretches_around(civil->first, civil->first)) {
    const time_t first = std::max(stretch.first, civil->first - stretch.ahead);
    if (first <= stretch.last && first + stretch.ahead < civil->end) {
      return first;
    }
  }
  return t;
}

/// Whether a leap second, 23:59:60, follows that time. No stretch contains a leap second.
bool is_before_leap_second(time_t t) {
  const std::optional<std::tm> next = local_time(t + 1);
  return next && next->tm_hour == 23 && next->tm_min == 59 && next->tm_sec == 60;
}

/// The latest time on a date of the period. If clocks are put back, they may show that date again.
time_t end_of_period(time_t t, Period period) {
  const std::optional<CivilPeriod> civil = period_of(t, period);
  time_t latest = t;
  if (civil) {
    for (const LocalStretch& stretch : stretches_around(civil->end, civil->end)) {
      const time_t last = std::min(stretch.last, civil->end - 1 - stretch.ahead);
      if (last >= stretch.first && last + stretch.ahead >= civil->first) {
        latest = last;
      }
    }
    latest += is_before_leap_second(latest) ? 1 : 0;
  }
  return latest;
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
