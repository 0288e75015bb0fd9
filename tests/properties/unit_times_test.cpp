#include <gtest/gtest.h>

#include <memory>

#include "properties/local_times.hpp"
#include "properties/seeds.hpp"
#include "schedule/unit_times.hpp"
#include "support/zone.hpp"

namespace {

/// Local year, month, day of the month and weekday.
struct Date {
  int year;
  int month;
  int day;
  int weekday;
};

Date date_of(time_t t) {
  std::tm tm{};
  localtime_r(&t, &tm);
  return {tm.tm_year, tm.tm_mon, tm.tm_mday, tm.tm_wday};
}

int day_order(const Date& date) {
  return (date.year * 12 + date.month) * 31 + date.day;
}

bool is_same_day(const Date& a, const Date& b) {
  return day_order(a) == day_order(b);
}

/// Whether clocks already showed a later date: a change put them back over midnight.
bool is_repeated_evening(time_t t) {
  constexpr time_t longest_step_back = 25 * 3600;
  for (time_t before = t - longest_step_back; before < t; before += 20) {
    if (day_order(date_of(before)) > day_order(date_of(t))) {
      return true;
    }
  }
  return false;
}

/// Whether `first` may begin a unit of that type that holds `t`.
bool begins_unit(const std::string& type, const Date& first, const Date& t) {
  if (type == "daily") {
    return is_same_day(first, t);
  }
  if (type == "weekly") {
    return first.weekday == 0;
  }
  if (type == "monthly") {
    return first.day == 1 && first.month == t.month && first.year == t.year;
  }
  if (type == "yearly") {
    return first.day == 1 && first.month == 0 && first.year == t.year;
  }
  return first.day == 1 && (t.year - first.year) * 12 + t.month - first.month == 1;
}

/// Whether the day before `next` ends a unit of that type that holds `t`.
bool ends_unit(const std::string& type, const Date& next, const Date& t) {
  if (type == "daily") {
    return day_order(next) > day_order(t);
  }
  if (type == "weekly") {
    return next.weekday == 0;
  }
  const int months_ahead = (next.year - t.year) * 12 + next.month - t.month;
  if (type == "yearly") {
    return next.day == 1 && next.month == 0 && next.year == t.year + 1;
  }
  return next.day == 1 && months_ahead == (type == "endless" ? 2 : 1);
}

std::string complaint_about_unit(const Schedule& schedule, time_t t) {
  constexpr time_t longest_week = 7 * 86400 + 3 * 3600;
  const time_t start = schedule.unit_start;
  const time_t behind = schedule.unit_end + 1;
  if (t < start || t >= behind) {
    return "the unit does not hold the report time";
  }
  if (!begins_unit(schedule.type, date_of(start), date_of(t)) ||
      is_same_day(date_of(start - 1), date_of(start))) {
    return "the unit does not begin with its first second";
  }
  if (!ends_unit(schedule.type, date_of(behind), date_of(t)) ||
      is_same_day(date_of(behind - 1), date_of(behind))) {
    return "the unit does not end with its last second";
  }
  if (schedule.type == "weekly" && behind - start > longest_week) {
    return "the unit has several weeks";
  }
  return {};
}

/// Units follow each other without a second between them. They overlap where clocks are put back
/// over midnight, as the first seconds of the next date come before the last of this one, and those
/// of an endless schedule always do.
std::string complaint_about_neighbours(Schedule& schedule) {
  const time_t start = schedule.unit_start;
  const time_t end = schedule.unit_end;
  if (schedule.type == "endless") {
    return {};
  }
  compute_unit_times(schedule, end + 1);
  if (schedule.unit_start != end + 1 && !(schedule.unit_start <= end && is_repeated_evening(end))) {
    return "the next unit begins elsewhere";
  }
  compute_unit_times(schedule, start - 1);
  const time_t previous_end = schedule.unit_end;
  const bool follows =
      previous_end == start - 1 || (previous_end >= start && is_repeated_evening(previous_end));
  return follows ? "" : "the previous unit ends elsewhere";
}

TEST(UnitTimesProperties, UnitsHoldTheirReportTimesAndFollowEachOther) {
  ASSERT_GT(all_zones().size(), 400U);
  auto schedule = std::make_unique<Schedule>();
  for_each_seed(2000, [&](uint64_t seed) -> std::string {
    Random random(seed);
    const std::string name = random_zone(random);
    const Zone zone(name.c_str());
    const time_t report_time = random_report_time(random);
    schedule->type = random.pick(schedule_types().first(5)).text;
    compute_unit_times(*schedule, report_time);
    const time_t start = schedule->unit_start;
    const time_t end = schedule->unit_end;
    std::string complaint = complaint_about_unit(*schedule, report_time);
    if (complaint.empty()) {
      complaint = complaint_about_neighbours(*schedule);
    }
    if (complaint.empty()) {
      return {};
    }
    return complaint + ": " + schedule->type + ", " + name + ", " + std::to_string(report_time) +
           " (" + local_text(report_time) + "), unit " + local_text(start) + " to " +
           local_text(end);
  });
}

}  // namespace
