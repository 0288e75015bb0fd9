#include "platform/time/local_stretches.hpp"

#include <gtest/gtest.h>

#include <array>
#include <sstream>
#include <string>

#include "support/zone.hpp"

namespace {

constexpr int64_t hour_length = 3600;

/// Clocks an hour ahead of UTC until 1000 hours, then an hour behind it: two hours come twice.
constexpr std::array<LocalStretch, 2> put_back = {{
    {0, 1000 * hour_length - 1, hour_length, hour_length, 0, "A"},
    {1000 * hour_length, 2000 * hour_length, -hour_length, -hour_length, 0, "B"},
}};

/// From the second to the first: two hours are skipped.
constexpr std::array<LocalStretch, 2> put_forward = {{
    {0, 1000 * hour_length - 1, -hour_length, -hour_length, 0, "A"},
    {1000 * hour_length, 2000 * hour_length, hour_length, hour_length, 0, "B"},
}};

TEST(LocalStretches, OfTwoTimesTheOneWithTheNearerOffsetCounts) {
  constexpr int64_t twice = 1000 * hour_length;
  EXPECT_EQ(time_of_civil(put_back, twice, 0, hour_length), 999 * hour_length);
  EXPECT_EQ(time_of_civil(put_back, twice, 0, -hour_length), 1001 * hour_length);
  EXPECT_EQ(normalised_time_of_civil(put_back, twice, hour_length), 999 * hour_length);
  EXPECT_EQ(normalised_time_of_civil(put_back, twice, -hour_length), 1001 * hour_length);
}

TEST(LocalStretches, OfTwoTimesWithOffsetsAsNearTheEarlierCounts) {
  constexpr int64_t twice = 1000 * hour_length;
  EXPECT_EQ(time_of_civil(put_back, twice, 0, 0), 999 * hour_length);
  EXPECT_EQ(normalised_time_of_civil(put_back, twice, 0), 999 * hour_length);
}

TEST(LocalStretches, TheFirstAndTheLastSecondThatComeTwiceDo) {
  EXPECT_EQ(time_of_civil(put_back, 999 * hour_length - 1, 0, -hour_length), 998 * hour_length - 1);
  EXPECT_EQ(time_of_civil(put_back, 999 * hour_length, 0, -hour_length), 1000 * hour_length);
  EXPECT_EQ(time_of_civil(put_back, 1001 * hour_length - 1, 0, hour_length),
            1000 * hour_length - 1);
  EXPECT_EQ(time_of_civil(put_back, 1001 * hour_length, 0, hour_length), 1002 * hour_length);
}

TEST(LocalStretches, WhatIsSkippedHasNoTimeAndIsCountedOn) {
  EXPECT_EQ(time_of_civil(put_forward, 999 * hour_length - 1, 0, 0), 1000 * hour_length - 1);
  EXPECT_EQ(time_of_civil(put_forward, 999 * hour_length, 0, 0), std::nullopt);
  EXPECT_EQ(time_of_civil(put_forward, 1001 * hour_length - 1, 0, 0), std::nullopt);
  EXPECT_EQ(time_of_civil(put_forward, 1001 * hour_length, 0, 0), 1000 * hour_length);
  EXPECT_EQ(normalised_time_of_civil(put_forward, 1000 * hour_length, 0), 1001 * hour_length);
  EXPECT_EQ(normalised_time_of_civil(put_forward, -2 * hour_length, 0), std::nullopt);
}

TEST(LocalStretches, TheDaylightSavingStateComesBeforeTheOffset) {
  std::array<LocalStretch, 2> summer = put_back;
  summer[0].is_daylight_saving = 1;
  EXPECT_EQ(time_of_civil(summer, 1000 * hour_length, 1, -hour_length), 999 * hour_length);
  EXPECT_EQ(time_of_civil(summer, 1000 * hour_length, 0, hour_length), 1001 * hour_length);
  EXPECT_EQ(time_of_civil(summer, 500 * hour_length, 0, -hour_length), 499 * hour_length);
}

/// "FIRST-LAST@AHEAD " of each stretch.
std::string stretches_in(const char* zone_name, time_t first, time_t last) {
  const Zone zone(zone_name);
  std::ostringstream text;
  for (const LocalStretch& stretch : local_stretches(first, last)) {
    text << stretch.first << '-' << stretch.last << '@' << stretch.ahead << ' ';
  }
  return text.str();
}

TEST(LocalStretches, TheLastEndsWithTheSpan) {
  EXPECT_EQ(stretches_in("UTC", 1000, 1000 + 30 * hour_length), "1000-109000@0 ");
  EXPECT_EQ(stretches_in("Europe/Berlin", 1711846799, 1711846801),
            "1711846799-1711846799@3600 1711846800-1711846801@7200 ");
}

TEST(LocalStretches, TwoChangesLessThanFourDaysApartAreFound) {
  // On 1 September 1939, 01:00 in UTC, and back on 5 September, 00:40: the shortest time between
  // two changes in the database.
  constexpr time_t change = -957308400;
  EXPECT_EQ(stretches_in("Africa/Freetown", change - 600, change + 120 * hour_length),
            "-957309000--957308401@-3600 -957308400--956964001@-2400 "
            "-956964000--956876400@-3600 ");
}

TEST(LocalStretches, TenMinutesBetweenTwoWrittenChangesAreFound) {
  // On Sunday, 10 March 2024, from 02:00 to 02:10 in UTC.
  constexpr time_t change = 1710036000;
  EXPECT_EQ(stretches_in("AAA0BBB,M3.2.0/2,M3.2.0/3:10", change - 1, change + hour_length),
            "1710035999-1710035999@0 1710036000-1710036599@3600 1710036600-1710039600@0 ");
}

TEST(LocalStretches, CivilSecondsCarryMonthsAndDays) {
  std::tm tm{};
  tm.tm_year = 70;
  tm.tm_mday = 1;
  EXPECT_EQ(civil_seconds(tm), 0);
  tm.tm_mon = 14;  // March of 1971
  tm.tm_mday = 32;
  tm.tm_hour = 1;
  tm.tm_min = 2;
  tm.tm_sec = 3;
  EXPECT_EQ(civil_seconds(tm), (365 + 31 + 28 + 31) * 24 * hour_length + hour_length + 123);
  tm.tm_mon = -1;  // December of 1969
  tm.tm_mday = 31;
  EXPECT_EQ(civil_seconds(tm), -24 * hour_length + hour_length + 123);
}

}  // namespace
