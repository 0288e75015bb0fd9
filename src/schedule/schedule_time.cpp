#include "schedule/schedule_time.hpp"

#include <algorithm>
#include <limits>

namespace {

/// Local midnight of 1 January 2020, where endless schedules begin.
bool endless_base(std::tm& base) {
  std::tm first_day{};
  first_day.tm_year = first_schedule_year - 1900;
  first_day.tm_mday = 1;
  first_day.tm_isdst = -1;
  const time_t t = mktime(&first_day);
  return localtime_r(&t, &base) != nullptr;
}

bool base_time(const Schedule& schedule, std::tm& base) {
  if (schedule.type == "endless") {
    return endless_base(base);
  }
  const time_t unit_start = schedule.unit_start;
  return localtime_r(&unit_start, &base) != nullptr;
}

/// The base advanced by schedule seconds, with days and months left to mktime to normalise.
std::tm advance(const std::tm& base, uint64_t x) {
  std::tm tm{};
  tm.tm_year = base.tm_year;
  tm.tm_mon = base.tm_mon + static_cast<int>(x / seconds_per_month);
  tm.tm_mday = base.tm_mday + static_cast<int>(x / seconds_per_day % days_per_month);
  tm.tm_hour = base.tm_hour + static_cast<int>(x / 3600 % 24);
  tm.tm_min = base.tm_min + static_cast<int>(x / 60 % 60);
  tm.tm_sec = base.tm_sec + static_cast<int>(x % 60);
  while (tm.tm_sec >= 60) {
    tm.tm_sec -= 60;
    ++tm.tm_min;
  }
  while (tm.tm_min >= 60) {
    tm.tm_min -= 60;
    ++tm.tm_hour;
  }
  while (tm.tm_hour >= 24) {
    tm.tm_hour -= 24;
    ++tm.tm_mday;
  }
  return tm;
}

}  // namespace

uint64_t broken_down_to_schedule_seconds(std::string_view type, const std::tm& broken_down) {
  const int clock = broken_down.tm_hour * 3600 + broken_down.tm_min * 60 + broken_down.tm_sec;
  const auto second_of_day = static_cast<uint64_t>(clock);
  const auto day_of_month = static_cast<uint64_t>(broken_down.tm_mday - 1);
  const auto month = static_cast<uint64_t>(broken_down.tm_mon);
  if (type == "daily") {
    return second_of_day;
  }
  if (type == "weekly") {
    return static_cast<uint64_t>(broken_down.tm_wday) * seconds_per_day + second_of_day;
  }
  const uint64_t second_of_month = day_of_month * seconds_per_day + second_of_day;
  if (type == "monthly") {
    return second_of_month;
  }
  const uint64_t second_of_year = month * seconds_per_month + second_of_month;
  if (type == "yearly") {
    return second_of_year;
  }
  if (type == "endless") {
    constexpr int first_year = first_schedule_year - 1900;
    const auto year = static_cast<uint64_t>(std::max(broken_down.tm_year, first_year) - first_year);
    return year * seconds_per_year + second_of_year;
  }
  return no_time;
}

uint64_t time_to_schedule_seconds(const Schedule& schedule, time_t t) {
  std::tm broken_down{};
  if (localtime_r(&t, &broken_down) == nullptr) {
    return no_time;
  }
  return broken_down_to_schedule_seconds(schedule.type, broken_down);
}

time_t schedule_seconds_to_time(const Schedule& schedule, uint64_t schedule_seconds) {
  std::tm base{};
  if (!base_time(schedule, base)) {
    return 0;
  }
  if (schedule_seconds / seconds_per_month > std::numeric_limits<int>::max() / 2) {
    return -1;
  }
  const std::tm advanced = advance(base, schedule_seconds);
  // The C library takes the hint at its word and shifts a local time whose daylight-saving state
  // is another, so the hint is corrected from what it reports. In a gap no hint ever fits.
  int daylight_saving = base.tm_isdst;
  for (int attempt = 0; attempt < 3; ++attempt) {
    std::tm tm = advanced;
    tm.tm_isdst = daylight_saving;
    const time_t t = mktime(&tm);
    if (tm.tm_isdst == daylight_saving) {
      return t;
    }
    daylight_saving = tm.tm_isdst;
  }
  return -1;
}

UnitClock::UnitClock(const Schedule& schedule) : schedule_(schedule) {
}

time_t UnitClock::time_of(uint64_t schedule_seconds) {
  const uint64_t day_number = schedule_seconds / seconds_per_day;
  if (day_number >= default_slots) {
    return schedule_seconds_to_time(schedule_, schedule_seconds);
  }
  if (day_number >= days_.size()) {
    days_.resize(day_number + 1);
  }
  Day& day = days_[day_number];
  const uint64_t first_position = day_number * seconds_per_day;
  if (day.kind == DayKind::unknown) {
    look_at_day(day, first_position);
  }
  if (day.kind == DayKind::irregular) {
    return schedule_seconds_to_time(schedule_, schedule_seconds);
  }
  return day.first_second + static_cast<time_t>(schedule_seconds - first_position);
}

uint64_t UnitClock::schedule_seconds_of(time_t t) {
  const std::tm* broken_down = local_.breakdown(t);
  return broken_down != nullptr ? broken_down_to_schedule_seconds(schedule_.type, *broken_down)
                                : no_time;
}

void UnitClock::look_at_day(Day& day, uint64_t first_position) {
  // A wrong daylight-saving hint shifts a first attempt by the distance of the zone's offsets, at
  // most across the date line. With no clock change that near, the second attempt is exact.
  constexpr time_t reach = 27 * 3600;
  constexpr time_t last_second = seconds_per_day - 1;
  const time_t first = schedule_seconds_to_time(schedule_, first_position);
  const time_t last = schedule_seconds_to_time(schedule_, first_position + seconds_per_day - 1);
  const bool is_plain = first != -1 && last != -1 && last - first == last_second &&
                        (first < -last_second || first > 0) &&
                        offset_.holds(first - reach, last + reach);
  day.kind = is_plain ? DayKind::plain : DayKind::irregular;
  day.first_second = first;
}
