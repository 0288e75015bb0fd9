// The remembering clocks give, to the second, what the plain conversions give.

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "platform/local_clock.hpp"
#include "schedule/schedule_time.hpp"
#include "schedule/unit_times.hpp"
#include "support/zone.hpp"

namespace {

std::string fields(const std::tm* tm) {
  if (tm == nullptr) {
    return "none";
  }
  char text[96];
  const size_t length = std::strftime(text, sizeof text, "%F %T %j %w %z %Z", tm);
  return std::string(text, length) + (tm->tm_isdst > 0 ? " summer" : "");
}

void expect_same_breakdown(LocalClock& clock, time_t t) {
  std::tm plain{};
  const std::tm* expected = localtime_r(&t, &plain);
  ASSERT_EQ(fields(clock.breakdown(t)), fields(expected)) << t;
}

void expect_same_position(UnitClock& clock, const Schedule& schedule, uint64_t position) {
  const time_t expected = schedule_seconds_to_time(schedule, position);
  ASSERT_EQ(clock.time_of(position), expected) << schedule.type << " " << position;
  ASSERT_EQ(clock.schedule_seconds_of(expected), time_to_schedule_seconds(schedule, expected));
}

std::unique_ptr<Schedule> schedule_around(const char* type, time_t report_time) {
  auto schedule = std::make_unique<Schedule>();
  schedule->type = type;
  compute_unit_times(*schedule, report_time);
  schedule->unit_length = find_schedule_type(type)->unit_length;
  return schedule;
}

struct ChangeDay {
  const char* zone;
  time_t noon;  ///< a time of the day on which the clocks change
};

constexpr std::array<ChangeDay, 9> change_days = {{
    {"Europe/Berlin", 1711882800},        // 2024-03-31
    {"Europe/Berlin", 1730030400},        // 2024-10-27
    {"America/New_York", 1710090000},     // 2024-03-10
    {"America/Havana", 1699203600},       // 2023-11-05, midnight twice
    {"America/Sao_Paulo", 1508079600},    // 2017-10-15, no midnight
    {"Asia/Beirut", 1648375200},          // 2022-03-27, no midnight
    {"America/St_Johns", 1289145600},     // 2010-11-07, at 00:01
    {"Australia/Lord_Howe", 1712415600},  // 2024-04-07, half an hour
    {"Pacific/Apia", 1325289600},         // around the day that did not exist
}};

TEST(ClockEquality, EverySecondAroundAClockChange) {
  for (const ChangeDay& day : change_days) {
    const Zone zone(day.zone);
    SCOPED_TRACE(day.zone);
    LocalClock clock;
    for (time_t t = day.noon - 86400; t < day.noon + 86400; t += 7) {
      expect_same_breakdown(clock, t);
    }
    const auto schedule = schedule_around("daily", day.noon);
    UnitClock unit_clock(*schedule);
    for (uint64_t position = 0; position <= 90000; ++position) {
      expect_same_position(unit_clock, *schedule, position);
    }
    if (HasFatalFailure()) {
      return;
    }
  }
}

TEST(ClockEquality, SampledSecondsOfAYearOfEveryType) {
  for (const char* name : {"Europe/Berlin", "America/New_York", "America/Sao_Paulo", "Asia/Beirut",
                           "America/Havana", "Asia/Kolkata", "Asia/Kathmandu", "Pacific/Apia",
                           "Africa/Casablanca", "Europe/Dublin", "Antarctica/Troll", "UTC"}) {
    const Zone zone(name);
    SCOPED_TRACE(name);
    for (const char* type : {"weekly", "monthly", "yearly", "endless"}) {
      const auto schedule = schedule_around(type, 1508079600);  // October 2017
      UnitClock clock(*schedule);
      // A step that is no divisor of a day meets every part of it.
      for (uint64_t position = 0; position <= schedule->unit_length; position += 86400 / 5 + 211) {
        expect_same_position(clock, *schedule, position);
      }
    }
    LocalClock clock;
    for (time_t t = 1483228800; t < 1514764800; t += 4001) {
      expect_same_breakdown(clock, t);
    }
    if (HasFatalFailure()) {
      return;
    }
  }
}

/// Samples the year; scripts/check-all-zones takes the hours that every second of it needs.
TEST(ClockEquality, AYearOfEveryZone) {
  const char* step_text = std::getenv("STEP");
  const time_t step = step_text != nullptr ? std::strtol(step_text, nullptr, 10) : 40009;
  ASSERT_GT(step, 0);
  const std::vector<std::string> zones = all_zones();
  ASSERT_GT(zones.size(), 400U);
  for (const std::string& name : zones) {
    const Zone zone(name.c_str());
    SCOPED_TRACE(name);
    LocalClock clock;
    for (time_t t = 1704067200; t < 1735689600; t += step) {  // 2024
      expect_same_breakdown(clock, t);
    }
    const auto schedule = schedule_around("yearly", 1718445600);
    UnitClock unit_clock(*schedule);
    for (uint64_t p = 0; p <= schedule->unit_length; p += static_cast<uint64_t>(step)) {
      expect_same_position(unit_clock, *schedule, p);
    }
    if (HasFatalFailure()) {
      return;
    }
  }
}

TEST(ClockEquality, OddTimes) {
  const Zone berlin("Europe/Berlin");
  LocalClock clock;
  for (const time_t t : {time_t{0}, time_t{-1}, time_t{-86400}, time_t{1} << 40U,
                         -(time_t{1} << 40U), time_t{9223372036854775807}, time_t{-1}}) {
    expect_same_breakdown(clock, t);
  }
  const auto schedule = schedule_around("daily", 0);
  UnitClock unit_clock(*schedule);
  for (const uint64_t position : {uint64_t{0}, uint64_t{86400}, no_time, no_time / 2,
                                  uint64_t{5580} * 86400, uint64_t{5580} * 86400 - 1}) {
    expect_same_position(unit_clock, *schedule, position);
  }
}

TEST(ClockEquality, AnotherNameOfTheSameOffsetIsAClockChange) {
  const Zone new_york("America/New_York");
  const time_t peace = -769395600;  // 1945-08-14 19:00 local: "war time" became "peace time"
  EXPECT_TRUE(ConstantOffset().holds(peace - 7200, peace - 1));
  EXPECT_FALSE(ConstantOffset().holds(peace - 7200, peace));
  EXPECT_TRUE(ConstantOffset().holds(peace, peace + 7200));
}

TEST(ClockEquality, NoOffsetHoldsWhereThereAreNoDates) {
  const Zone utc("UTC");
  const time_t last = 67768036191676799;
  EXPECT_TRUE(ConstantOffset().holds(last - 10, last));
  EXPECT_FALSE(ConstantOffset().holds(last - 10, last + 10));
  EXPECT_FALSE(ConstantOffset().holds(last + 1, last + 10));
}

}  // namespace
