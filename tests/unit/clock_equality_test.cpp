// The remembering clocks give, to the second, what the plain conversions give.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "platform/time/local_clock.hpp"
#include "platform/time/local_stretches.hpp"
#include "properties/random.hpp"
#include "schedule/schedule_time.hpp"
#include "schedule/unit_times.hpp"
#include "support/plain_conversion.hpp"
#include "support/schedule_around.hpp"
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
  const time_t expected = plain_time_of(schedule, position);
  ASSERT_EQ(clock.time_of(position), expected) << schedule.type << " " << position;
  ASSERT_EQ(clock.schedule_seconds_of(expected), time_to_schedule_seconds(schedule, expected));
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
  for (const ChangeDay& change : change_days) {
    const Zone zone(change.zone);
    SCOPED_TRACE(change.zone);
    LocalClock clock;
    for (time_t t = change.noon - 86400; t < change.noon + 86400; t += 7) {
      expect_same_breakdown(clock, t);
    }
    const auto schedule = schedule_around("daily", change.noon);
    UnitClock unit_clock(*schedule);
    for (uint64_t position = 0; position <= 90000; position += 61) {
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
      // A step that is no multiple of a day meets every part of it.
      for (uint64_t position = 0; position <= schedule->unit_length;
           position += 86400 * 3 + 12 * 3607) {
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
    for (uint64_t p = 0; p <= schedule->unit_length; p += static_cast<uint64_t>(step) * 16) {
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

/// Written out in TZ, with changes within hours of each other and around midnight.
constexpr std::array<const char*, 6> written_zones = {
    "AAA0BBB,J101/0:30,J101/2:30",   "AAA0BBB,J101/2:30,J102/0:15", "AAA-3BBB-4,J101/22:30,J102/2",
    "AAA5BBB4:30,J101/23:45,J102/4", "AAA0BBB,J101/0,J101/6",       "EST5EDT,M3.2.0,M11.1.0"};

constexpr time_t year_1900 = -2208988800;
constexpr time_t year_1970 = 0;
constexpr time_t year_2020 = 1577836800;

/// Times at which the clocks of the zone change until 2037, leap seconds included.
std::vector<time_t> clock_changes(time_t first) {
  constexpr time_t last = 2145916800;
  std::vector<time_t> changes;
  for (const LocalStretch& stretch : local_stretches(first, last)) {
    changes.push_back(stretch.first);
  }
  return changes;
}

/// Compares positions around a clock change with the plain conversion, in ascending, descending and
/// random order; each order has a clock of its own, so that none may lean on what stood before.
void expect_same_around(const Schedule& schedule, time_t change, Random& random) {
  const time_t before = change - 1;
  const auto around = static_cast<int64_t>(time_to_schedule_seconds(schedule, before)) + 1;
  std::vector<uint64_t> positions;
  for (const int64_t distance :
       {-86400, -10800, -3601, -3600, -1800, -1, 0, 1, 900, 1800, 3599, 3600, 5400, 7200, 86400}) {
    if (around + distance >= 0) {
      positions.push_back(static_cast<uint64_t>(around + distance));
    }
  }
  UnitClock ascending(schedule);
  for (const uint64_t position : positions) {
    expect_same_position(ascending, schedule, position);
  }
  UnitClock descending(schedule);
  UnitClock shuffled(schedule);
  for (size_t i = positions.size(); i-- > 0;) {
    ASSERT_EQ(descending.time_of(positions[i]), ascending.time_of(positions[i]));
    const uint64_t any = random.pick(positions);
    ASSERT_EQ(shuffled.time_of(any), ascending.time_of(any));
    ASSERT_EQ(schedule_seconds_to_time(schedule, any), ascending.time_of(any));
  }
}

void expect_same_around_changes(const std::string& name, time_t first, size_t step) {
  const Zone zone(name.c_str());
  SCOPED_TRACE(name);
  Random random(17);
  const std::vector<time_t> changes = clock_changes(first);
  for (size_t i = name.size() % step; i < changes.size(); i += step) {
    for (const char* type : {"daily", "weekly", "monthly", "yearly", "endless"}) {
      expect_same_around(*schedule_around(type, changes[i] - 1), changes[i], random);
      if (testing::Test::HasFatalFailure()) {
        return;
      }
    }
  }
}

/// Every change of every zone takes an hour, so a usual run takes some of some;
/// scripts/check-all-zones takes all.
TEST(ClockEquality, AroundTheClockChangesOfEveryZone) {
  const char* step_text = std::getenv("CHANGE_STEP");
  const long given = step_text != nullptr ? std::strtol(step_text, nullptr, 10) : 9;
  ASSERT_GT(given, 0);
  const auto step = static_cast<size_t>(given);
  const std::vector<std::string> zones = all_zones();
  for (size_t i = 0; i < zones.size(); i += step) {
    expect_same_around_changes(zones[i], year_1900, step);
  }
  for (const char* name : {"right/Europe/London", "right/Asia/Tokyo", "right/America/St_Johns",
                           "right/Europe/Volgograd", "Europe/Volgograd", "Europe/Moscow"}) {
    expect_same_around_changes(name, year_1900, step);
  }
  for (const char* name : written_zones) {
    expect_same_around_changes(name, year_2020, step);
  }
}

TEST(ClockEquality, LocalTimesAroundLeapSecondsAndChangesWithinHours) {
  for (const char* name : {"right/Asia/Tokyo", "right/UTC", "right/America/New_York",
                           "AAA0BBB,J101/0:30,J101/2:30", "AAA5BBB4:30,J101/23:45,J102/4"}) {
    const Zone zone(name);
    SCOPED_TRACE(name);
    LocalClock clock;
    const std::vector<time_t> changes = clock_changes(year_1970);
    ASSERT_GT(changes.size(), 20U);
    for (size_t i = 1; i < changes.size(); i += 5) {
      for (time_t t = changes[i] - 90000; t < changes[i] + 90000; t += 89) {
        expect_same_breakdown(clock, t);
      }
      for (time_t t = changes[i] - 3; t < changes[i] + 3; ++t) {
        expect_same_breakdown(clock, t);
      }
    }
  }
}

TEST(ClockEquality, AnotherNameOfTheSameOffsetIsAClockChange) {
  const Zone new_york("America/New_York");
  const time_t peace = -769395600;  // 1945-08-14 19:00 local: "war time" became "peace time"
  const std::vector<LocalStretch> stretches = local_stretches(peace - 7200, peace + 7200);
  ASSERT_EQ(stretches.size(), 2U);
  EXPECT_EQ(stretches[0].last, peace - 1);
  EXPECT_EQ(stretches[1].first, peace);
  EXPECT_EQ(stretches[0].ahead, stretches[1].ahead);
  EXPECT_STREQ(stretches[0].zone, "EWT");
  EXPECT_STREQ(stretches[1].zone, "EPT");
}

TEST(ClockEquality, StretchesEndWhereTheDatesEnd) {
  const Zone utc("UTC");
  const time_t last = 67768036191676799;
  for (const time_t end : {last, last + 10}) {
    const std::vector<LocalStretch> stretches = local_stretches(last - 10, end);
    ASSERT_EQ(stretches.size(), 1U);
    EXPECT_EQ(stretches[0].first, last - 10);
    EXPECT_EQ(stretches[0].last, last);
  }
  EXPECT_TRUE(local_stretches(last + 1, last + 10).empty());
  const time_t first = -67768040609740800;
  ASSERT_EQ(local_stretches(first - 10, first + 10).size(), 1U);
  EXPECT_EQ(local_stretches(first - 10, first + 10)[0].first, first);
}

}  // namespace
