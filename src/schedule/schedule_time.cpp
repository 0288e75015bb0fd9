#include "schedule/schedule_time.hpp"

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>

#include "platform/time/civil_date.hpp"

namespace {

/// Positions beyond this are not valid times: the year of a broken-down time has no room for more.
constexpr uint64_t most_months = std::numeric_limits<int>::max() / 2;

/// To look at the clock changes of a week costs little more than to look at those of a day.
constexpr uint64_t days_per_week = 7;

/// Local midnight of 1 January 2020, the beginning of endless schedules.
std::optional<time_t> endless_base() {
  constexpr int64_t first_day = days_from_civil(first_schedule_year, 1, 1);
  constexpr int64_t midnight = first_day * int64_t{seconds_per_day};
  return normalised_time_of_civil(stretches_around(midnight, midnight), midnight, 0);
}

/// Civil seconds of the base plus that many days of the padded calendar. Days past the end of a
/// month count into the next month.
int64_t advance(std::tm base, uint64_t day_number) {
  base.tm_mon += static_cast<int>(day_number / days_per_month);
  base.tm_mday += static_cast<int>(day_number % days_per_month);
  return civil_seconds(base);
}

/// The number of the day in its unit, from 0. Years before the first one count as the first.
uint64_t day_of_unit(DayName day_name, const std::tm& broken_down) {
  const int day_of_month = broken_down.tm_mday - 1;
  const int day_of_year = broken_down.tm_mon * days_per_month + day_of_month;
  const int year = std::max(broken_down.tm_year - (first_schedule_year - 1900), 0);
  switch (day_name) {
    case DayName::weekday:
      return static_cast<uint64_t>(broken_down.tm_wday);
    case DayName::day_of_month:
      return static_cast<uint64_t>(day_of_month);
    case DayName::day_of_year:
      return static_cast<uint64_t>(day_of_year);
    case DayName::date:
      return static_cast<uint64_t>(year) * days_per_year + static_cast<uint64_t>(day_of_year);
    case DayName::none:
    case DayName::only_day:
    case DayName::number:
      break;
  }
  return 0;
}

}  // namespace

uint64_t broken_down_to_schedule_seconds(const ScheduleType* type, const std::tm& broken_down) {
  if (type == nullptr || type->unit_length == 0) {
    return no_time;
  }
  const int clock = broken_down.tm_hour * 3600 + broken_down.tm_min * 60 + broken_down.tm_sec;
  return day_of_unit(type->day_name, broken_down) * seconds_per_day + static_cast<uint64_t>(clock);
}

uint64_t time_to_schedule_seconds(const Schedule& schedule, time_t t) {
  std::tm broken_down{};
  if (localtime_r(&t, &broken_down) == nullptr) {
    return no_time;
  }
  return broken_down_to_schedule_seconds(find_schedule_type(schedule.type), broken_down);
}

time_t schedule_seconds_to_time(const Schedule& schedule, uint64_t schedule_seconds) {
  return UnitClock(schedule).time_of(schedule_seconds);
}

UnitClock::UnitClock(const Schedule& schedule) : UnitClock(schedule.type, schedule.unit_start) {
}

UnitClock::UnitClock(std::string_view type, time_t unit_start) : type_(find_schedule_type(type)) {
  const bool is_endless = type_ != nullptr && type_->day_name == DayName::date;
  const std::optional<time_t> first = is_endless ? endless_base() : unit_start;
  beginning_.time = first.value_or(0);
  beginning_.exists = first && localtime_r(&*first, &base_) != nullptr;
  beginning_.offset = base_.tm_gmtoff;
}

time_t UnitClock::find_time_of(uint64_t schedule_seconds) {
  if (!beginning_.exists) {
    return 0;
  }
  const uint64_t day_number = schedule_seconds / seconds_per_day;
  if (day_number >= default_slots) {
    return day_number / days_per_month <= most_months
               ? time_in(look_at_days(day_number, 1), schedule_seconds)
               : -1;
  }
  const uint64_t week_number = day_number / days_per_week;
  if (week_number >= weeks_.size()) {
    weeks_.resize(week_number + 1);
  }
  std::optional<Days>& week = weeks_[week_number];
  if (!week) {
    week = look_at_days(week_number * days_per_week, days_per_week);
  }
  return time_in(*week, schedule_seconds);
}

uint64_t UnitClock::schedule_seconds_of(time_t t) {
  const std::tm* broken_down = local_.breakdown(t);
  return broken_down != nullptr ? broken_down_to_schedule_seconds(type_, *broken_down) : no_time;
}

UnitClock::Days UnitClock::look_at_days(uint64_t first, uint64_t count) const {
  std::vector<int64_t> civil;
  for (uint64_t day_number = first; day_number < first + count; ++day_number) {
    civil.push_back(advance(base_, day_number));
  }
  // Days past the end of a short month are those of the next month, so later days may come first.
  const auto [earliest, latest] = std::ranges::minmax(civil);
  return {first, std::move(civil), stretches_around(earliest, latest + int64_t{seconds_per_day})};
}

time_t UnitClock::time_in(const Days& days, uint64_t schedule_seconds) const {
  const int64_t civil = days.civil[schedule_seconds / seconds_per_day - days.first] +
                        static_cast<int64_t>(schedule_seconds % seconds_per_day);
  return time_of_civil(days.stretches, civil, base_.tm_isdst, beginning_.offset).value_or(-1);
}
