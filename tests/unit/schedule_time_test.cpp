#include "schedule/schedule_time.hpp"

#include <gtest/gtest.h>

#include <limits>

#include "support/schedule_around.hpp"
#include "support/zone.hpp"

namespace {

TEST(ScheduleTime, SecondZeroIsTheStartOfTheUnit) {
  const Zone berlin("Europe/Berlin");
  const auto schedule = schedule_around("weekly", 1709251200);
  EXPECT_EQ(schedule_seconds_to_time(*schedule, 0), schedule->unit_start);
}

TEST(ScheduleTime, EndlessSecondsCountFrom2020InThePaddedCalendar) {
  const Zone utc("UTC");
  const auto schedule = schedule_around("endless", 1709251200);
  EXPECT_EQ(local_text(schedule_seconds_to_time(*schedule, 0)), "2020-01-01 00:00:00");
  EXPECT_EQ(
      local_text(schedule_seconds_to_time(
          *schedule, 4 * seconds_per_year + 2 * seconds_per_month + 4 * seconds_per_day + 3661)),
      "2024-03-05 01:01:01");
}

TEST(ScheduleTime, ADayThatDoesNotExistRunsIntoTheNextMonth) {
  const Zone utc("UTC");
  const auto schedule = schedule_around("monthly", 1713139200);  // April 2024
  EXPECT_EQ(local_text(schedule_seconds_to_time(*schedule, 30 * seconds_per_day)),
            "2024-05-01 00:00:00");
}

TEST(ScheduleTime, ATimeInTheGapOfAClockChangeIsNoTime) {
  const Zone berlin("Europe/Berlin");
  const auto schedule = schedule_around("daily", 1711882800);  // 2024-03-31
  EXPECT_EQ(schedule_seconds_to_time(*schedule, 2 * 3600 + 1800), -1);
  EXPECT_EQ(local_text(schedule_seconds_to_time(*schedule, 2 * 3600 - 1)), "2024-03-31 01:59:59");
  EXPECT_EQ(local_text(schedule_seconds_to_time(*schedule, 3 * 3600)), "2024-03-31 03:00:00");
}

TEST(ScheduleTime, AUnitStartWithoutLocalTimeGivesZero) {
  const Zone utc("UTC");
  Schedule schedule;
  schedule.type = "daily";
  schedule.unit_start = 9223372036854775807;
  EXPECT_EQ(schedule_seconds_to_time(schedule, 0), 0);
}

TEST(ScheduleTime, EndlessSecondsDoNotDependOnTheUnit) {
  {
    const Zone utc("UTC");
    Schedule schedule;
    schedule.type = "endless";
    schedule.unit_start = std::numeric_limits<int64_t>::max();  // without a local date
    EXPECT_EQ(schedule_seconds_to_time(schedule, 0), 1577836800);
    EXPECT_EQ(schedule_seconds_to_time(schedule, 86399), 1577836800 + 86399);
  }
  // On 1 March 2024 at 00:00 clocks went back to 23:00 for good, both under standard time. The hour
  // that comes twice is the one with the offset of January 2020, whichever months are shown.
  const Zone almaty("Asia/Almaty");
  constexpr uint64_t hour_that_comes_twice =
      4 * seconds_per_year + seconds_per_month + 28 * seconds_per_day + 23 * 3600;
  const auto before = schedule_around("endless", 1706745600);  // February 2024
  const auto after = schedule_around("endless", 1716000000);   // May 2024
  EXPECT_EQ(schedule_seconds_to_time(*before, hour_that_comes_twice), 1709226000);
  EXPECT_EQ(schedule_seconds_to_time(*after, hour_that_comes_twice), 1709226000);
}

TEST(ScheduleTime, FarTooManySecondsAreNoTime) {
  const Zone utc("UTC");
  const auto schedule = schedule_around("daily", 0);
  EXPECT_EQ(schedule_seconds_to_time(*schedule, no_time), -1);
}

TEST(ScheduleTime, PositionsHaveATimeUpToTheLargestMonth) {
  const Zone utc("UTC");
  const auto schedule = schedule_around("endless", 0);
  // 1,073,741,823 months after January 2020 is April 89480505. Day 31 of it is 1 May.
  constexpr uint64_t last_day = (uint64_t{1073741823} * 31 + 30) * seconds_per_day;
  EXPECT_EQ(schedule_seconds_to_time(*schedule, last_day), 2823669844416000);
  EXPECT_EQ(schedule_seconds_to_time(*schedule, last_day + seconds_per_day), -1);
}

TEST(ScheduleTime, EachTypeKeepsItsPartOfALocalTime) {
  const Zone utc("UTC");
  constexpr time_t t = 1709602205;  // Tuesday 2024-03-05 01:30:05
  constexpr uint64_t clock = 5405;
  const auto seconds = [](const char* type) {
    Schedule schedule;
    schedule.type = type;
    return time_to_schedule_seconds(schedule, t);
  };
  EXPECT_EQ(seconds("daily"), clock);
  EXPECT_EQ(seconds("weekly"), 2 * 86400 + clock);
  EXPECT_EQ(seconds("monthly"), 4 * 86400 + clock);
  EXPECT_EQ(seconds("yearly"), 2 * 2678400 + 4 * 86400 + clock);
  EXPECT_EQ(seconds("endless"), 4 * 32140800 + 2 * 2678400 + 4 * 86400 + clock);
  EXPECT_EQ(seconds("interval"), no_time);
}

TEST(ScheduleTime, YearsBefore2020CountAs2020) {
  const Zone utc("UTC");
  Schedule schedule;
  schedule.type = "endless";
  EXPECT_EQ(time_to_schedule_seconds(schedule, 0), 0U);
}

TEST(ScheduleTime, ATimeWithoutLocalTimeHasNoScheduleSeconds) {
  const Zone utc("UTC");
  Schedule schedule;
  schedule.type = "daily";
  EXPECT_EQ(time_to_schedule_seconds(schedule, 9223372036854775807), no_time);
}

TEST(ScheduleTime, ATimeWithoutADateHasNoPosition) {
  const Zone utc("UTC");
  const auto schedule = schedule_around("daily", 1709251200);
  constexpr time_t too_late = std::numeric_limits<time_t>::max();
  EXPECT_EQ(time_to_schedule_seconds(*schedule, too_late), no_time);
  EXPECT_EQ(UnitClock(*schedule).schedule_seconds_of(too_late), no_time);
}

}  // namespace
