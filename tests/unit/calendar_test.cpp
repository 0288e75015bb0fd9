#include "platform/time/calendar.hpp"

#include <gtest/gtest.h>

#include <array>

#include "support/zone.hpp"

namespace {

constexpr time_t an_hour = 3600;

struct PeriodFunctions {
  const char* name;
  time_t (*start)(time_t);
  time_t (*end)(time_t);
  int (*number)(const std::tm&);  ///< grows from each period to the next
};

constexpr std::array<PeriodFunctions, 3> periods = {{
    {"day", calendar_start_of_day, calendar_end_of_day,
     [](const std::tm& tm) { return tm.tm_year * 366 + tm.tm_yday; }},
    {"month", calendar_start_of_month, calendar_end_of_month,
     [](const std::tm& tm) { return tm.tm_year * 12 + tm.tm_mon; }},
    {"year", calendar_start_of_year, calendar_end_of_year,
     [](const std::tm& tm) { return tm.tm_year; }},
}};

int period_number(const PeriodFunctions& period, time_t t) {
  std::tm tm{};
  localtime_r(&t, &tm);
  return period.number(tm);
}

TEST(Calendar, DayBeginsAfterAGapAtMidnight) {
  const Zone sao_paulo("America/Sao_Paulo");
  const time_t noon = 1508079600;  // 2017-10-15 13:00 local
  EXPECT_EQ(local_text(calendar_start_of_day(noon)), "2017-10-15 01:00:00");
  EXPECT_EQ(calendar_start_of_day(noon), 1508036400);
  EXPECT_EQ(local_text(calendar_end_of_day(noon - 86400)), "2017-10-14 23:59:59");
  EXPECT_EQ(calendar_start_of_week(noon), 1508036400);
}

TEST(Calendar, WeekBeginsAfterAGapAtMidnight) {
  const Zone beirut("Asia/Beirut");
  const time_t monday = 1648454400;  // 2022-03-28 11:00 local
  EXPECT_EQ(local_text(calendar_start_of_week(monday)), "2022-03-27 01:00:00");
}

TEST(Calendar, DayBeginsAtTheEarlierOfTwoMidnights) {
  const Zone havana("America/Havana");
  const time_t noon = 1699203600;                            // 2023-11-05 12:00 local
  EXPECT_EQ(calendar_start_of_day(noon), 1699156800);        // 04:00 UTC, still summer time
  EXPECT_EQ(calendar_start_of_day(1699160400), 1699156800);  // the later midnight is in it
  EXPECT_EQ(calendar_end_of_day(noon), 1699156800 + 25 * an_hour - 1);
}

TEST(Calendar, DaysWithAChangeLastOneHourMoreOrLess) {
  const Zone berlin("Europe/Berlin");
  const time_t spring = 1711882800;  // 2024-03-31 13:00 local
  EXPECT_EQ(calendar_end_of_day(spring) - calendar_start_of_day(spring), 23 * an_hour - 1);
  const time_t autumn = 1730030400;  // 2024-10-27 13:00 local
  EXPECT_EQ(calendar_end_of_day(autumn) - calendar_start_of_day(autumn), 25 * an_hour - 1);
}

TEST(Calendar, ADayThatComesInTwoPiecesEndsWithTheSecond) {
  const Zone st_johns("America/St_Johns");  // 2006-10-29 00:01 became 23:01 of the 28th
  const time_t noon = 1162090800 - 2 * an_hour - 1800;
  EXPECT_EQ(calendar_end_of_day(noon), 1162092599);
  EXPECT_EQ(calendar_end_of_day(1162090800), 1162092599);
  EXPECT_EQ(local_text(1162092599), "2006-10-28 23:59:59");
  EXPECT_EQ(calendar_start_of_day(1162092600), 1162089000);
  EXPECT_EQ(local_text(1162089000), "2006-10-29 00:00:00");
  EXPECT_EQ(calendar_end_of_week(noon), 1162092599);
}

TEST(Calendar, DateLineSkipsAWholeDay) {
  const Zone apia("Pacific/Apia");   // 2011-12-30 did not exist
  const time_t before = 1325196000;  // 2011-12-29 12:00 local
  EXPECT_EQ(local_text(calendar_end_of_day(before)), "2011-12-29 23:59:59");
  EXPECT_EQ(local_text(calendar_end_of_day(before) + 1), "2011-12-31 00:00:00");
}

TEST(Calendar, ZonesOffTheFullHourKeepTheirMinutes) {
  {
    const Zone kolkata("Asia/Kolkata");
    EXPECT_EQ(calendar_start_of_day(1709251200), 1709231400);  // 2024-02-29 18:30 UTC
  }
  const Zone kathmandu("Asia/Kathmandu");
  EXPECT_EQ(calendar_start_of_day(1709251200), 1709230500);  // 2024-02-29 18:15 UTC
}

TEST(Calendar, WeeksRunFromSundayToSaturday) {
  const Zone utc("UTC");
  EXPECT_EQ(local_text(calendar_start_of_week(1709251200)), "2024-02-25 00:00:00");
  EXPECT_EQ(local_text(calendar_end_of_week(1709251200)), "2024-03-02 23:59:59");
  EXPECT_EQ(local_text(calendar_start_of_week(1709424000)), "2024-03-03 00:00:00");
}

TEST(Calendar, MinutesBeginAtTheirLocalSecondZero) {
  const Zone utc("UTC");
  EXPECT_EQ(calendar_start_of_minute(119), 60);
  EXPECT_EQ(calendar_start_of_minute(120), 120);
  EXPECT_EQ(calendar_start_of_minute(-1), -60);
}

TEST(Calendar, ATimeWithoutLocalDateStaysAsItIs) {
  const Zone utc("UTC");
  constexpr time_t far_off = 9223372036854775807;
  for (const PeriodFunctions& period : periods) {
    EXPECT_EQ(period.start(far_off), far_off) << period.name;
    EXPECT_EQ(period.end(far_off), far_off) << period.name;
  }
  EXPECT_EQ(calendar_start_of_week(far_off), far_off);
  EXPECT_EQ(calendar_start_of_minute(far_off), far_off);
}

/// The last second of the period of that number; `next` is the first second of a later one. Clocks
/// that are put back over midnight may show the period once more, by whole minutes.
time_t last_second(const PeriodFunctions& period, int number, time_t next) {
  time_t last = next - 1 + 26 * an_hour;
  while (period_number(period, last) != number) {
    last -= 60;
  }
  return last;
}

/// Walks two years half-hour by half-hour, and back from each boundary second by second, and
/// compares with the definition: the first and the last second in the same local period.
TEST(Calendar, EveryPeriodBeginsAndEndsWithItsOwnSeconds) {
  for (const char* zone_name :
       {"America/Havana", "America/Sao_Paulo", "Asia/Beirut", "Europe/Berlin", "America/St_Johns",
        "Australia/Lord_Howe", "UTC"}) {
    const Zone zone(zone_name);
    for (const PeriodFunctions& period : periods) {
      constexpr time_t begin = 1262304000;  // 2010
      int current = period_number(period, begin);
      for (time_t t = begin; t < begin + 2 * 365 * 24 * an_hour; t += an_hour / 2) {
        const int number = period_number(period, t);
        if (number <= current) {
          continue;  // a clock put back may show the last period once more
        }
        time_t first = t;
        while (period_number(period, first - 1) == number) {
          --first;
        }
        ASSERT_EQ(period.start(t), first) << zone_name << " " << period.name;
        ASSERT_EQ(period.end(first - 2 * an_hour), last_second(period, current, first))
            << zone_name << " " << period.name;
        current = number;
      }
    }
  }
}

TEST(Calendar, APeriodWithALeapSecondEndsWithIt) {
  const Zone right("right/UTC");
  constexpr time_t leap = 1483228826;  // 2016-12-31 23:59:60, behind 26 others
  ASSERT_EQ(local_text(leap), "2016-12-31 23:59:60");
  for (const time_t t : {time_t{1483142426}, leap - 1, leap}) {
    EXPECT_EQ(calendar_end_of_day(t), leap) << t;
    EXPECT_EQ(calendar_end_of_week(t), leap) << t;
    EXPECT_EQ(calendar_end_of_month(t), leap) << t;
    EXPECT_EQ(calendar_end_of_year(t), leap) << t;
    EXPECT_EQ(calendar_start_of_day(t), 1483142426) << t;
    EXPECT_EQ(calendar_start_of_minute(t), t == 1483142426 ? t : leap - 60) << t;
  }
  EXPECT_EQ(calendar_start_of_day(leap + 1), leap + 1);
  EXPECT_EQ(calendar_start_of_year(leap + 1), leap + 1);
  EXPECT_EQ(calendar_end_of_day(leap + 1), leap + 86400);
}

TEST(Calendar, ALeapSecondInsideADayEndsNothing) {
  const Zone tokyo("right/Asia/Tokyo");
  constexpr time_t leap = 1483228826;  // 2017-01-01 08:59:60
  ASSERT_EQ(local_text(leap), "2017-01-01 08:59:60");
  EXPECT_EQ(local_text(calendar_end_of_day(leap)), "2017-01-01 23:59:59");
  EXPECT_EQ(calendar_end_of_day(leap) - calendar_start_of_day(leap), 86400);
}

TEST(Calendar, SettlingTheZoneKeepsAGivenOne) {
  const Zone berlin("Europe/Berlin");
  EXPECT_TRUE(settle_local_zone());
  EXPECT_STREQ(std::getenv("TZ"), "Europe/Berlin");
}

TEST(Calendar, YearsBeforeYearZeroHaveTheirPeriods) {
  const Zone utc("UTC");
  const time_t t = -62200000000;  // 17 December of the year -2, three years before the year 1
  EXPECT_EQ(calendar_start_of_day(t), -62200051200);
  EXPECT_EQ(calendar_start_of_month(t), -62201433600);
  EXPECT_EQ(calendar_start_of_year(t), -62230291200);
}

TEST(Calendar, TheLastDayOfAllEndsWithTheLastSecondOfAll) {
  const Zone utc("UTC");
  const time_t last = 67768036191676799;  // the years of a broken-down time reach no further
  EXPECT_EQ(calendar_start_of_day(last - 5), last - 86399);
  EXPECT_EQ(calendar_end_of_day(last - 5), last);
}

}  // namespace
