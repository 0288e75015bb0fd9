#include "schedule/default_slot.hpp"

#include <gtest/gtest.h>

namespace {

constexpr int none = -1;

int slot(const char* type, const char* key) {
  return default_slot_of_key(type, key).value_or(none);
}

TEST(DefaultSlot, DailyKnowsOneKey) {
  EXPECT_EQ(slot("daily", "day"), 0);
  EXPECT_EQ(slot("daily", "days"), none);
  EXPECT_EQ(slot("daily", "Day"), none);
}

TEST(DefaultSlot, WeekdaysAreKnownByTheirFirstLetters) {
  EXPECT_EQ(slot("weekly", "sun"), 0);
  EXPECT_EQ(slot("weekly", "monday"), 1);
  EXPECT_EQ(slot("weekly", "sat-night"), 6);
  EXPECT_EQ(slot("weekly", "su"), none);
  EXPECT_EQ(slot("weekly", "Sun"), none);
}

TEST(DefaultSlot, DaysOfTheMonthCountFromOneToTheLastSlot) {
  EXPECT_EQ(slot("monthly", "dom1"), 0);
  EXPECT_EQ(slot("monthly", "dom31"), 30);
  EXPECT_EQ(slot("monthly", "dom0031"), 30);
  EXPECT_EQ(slot("monthly", "dom5580"), 5579);
  EXPECT_EQ(slot("monthly", "dom5581"), none);
  EXPECT_EQ(slot("monthly", "dom0"), none);
  EXPECT_EQ(slot("monthly", "dom"), none);
  EXPECT_EQ(slot("monthly", "dom 5"), none);
  EXPECT_EQ(slot("monthly", "dom+5"), none);
  EXPECT_EQ(slot("monthly", "dom5th"), 4);
  EXPECT_EQ(slot("monthly", "dom5 x"), 4);
  EXPECT_EQ(slot("monthly", "dom15x"), 14);
  EXPECT_EQ(slot("monthly", "dom-1"), none);
  EXPECT_EQ(slot("monthly", "dom99999999999999999999"), none);
  EXPECT_EQ(slot("monthly", "doi1"), none);
  EXPECT_EQ(slot("interval", "doi7"), 6);
  EXPECT_EQ(slot("interval", "dom7"), none);
}

TEST(DefaultSlot, DaysOfTheYearFollowThePaddedCalendar) {
  EXPECT_EQ(slot("yearly", "m1d1"), 0);
  EXPECT_EQ(slot("yearly", "m2d30"), 60);
  EXPECT_EQ(slot("yearly", "m12d31"), 371);
  EXPECT_EQ(slot("yearly", "m13d1"), none);
  EXPECT_EQ(slot("yearly", "m0d1"), none);
  EXPECT_EQ(slot("yearly", "m1d32"), none);
  EXPECT_EQ(slot("yearly", "m1d0"), none);
  EXPECT_EQ(slot("yearly", "m1"), none);
  EXPECT_EQ(slot("yearly", "m1d2x"), 1);
  EXPECT_EQ(slot("yearly", "m3d5 and on"), 66);
  EXPECT_EQ(slot("yearly", "m 3d\t5"), 66);
  EXPECT_EQ(slot("yearly", "m+3d +5"), 66);
  EXPECT_EQ(slot("yearly", "m003d0005"), 66);
  EXPECT_EQ(slot("yearly", "m-3d5"), none);
  EXPECT_EQ(slot("yearly", "m3d- 5"), none);
  EXPECT_EQ(slot("yearly", "m3 d5"), none);
  EXPECT_EQ(slot("yearly", "m3.d5"), none);
  EXPECT_EQ(slot("yearly", "md5"), none);
  EXPECT_EQ(slot("yearly", "m3d"), none);
  EXPECT_EQ(slot("yearly", "m18446744073709551619d5"), none);
  EXPECT_EQ(slot("yearly", "y2020m1d1"), none);
}

TEST(DefaultSlot, DatesCountFrom2020) {
  EXPECT_EQ(slot("endless", "y2020m1d1"), 0);
  EXPECT_EQ(slot("endless", "y2021m2d3"), 372 + 31 + 2);
  EXPECT_EQ(slot("endless", "y2034m12d31"), 5579);
  EXPECT_EQ(slot("endless", "y2035m1d1"), none);
  EXPECT_EQ(slot("endless", "y2019m12d31"), none);
  EXPECT_EQ(slot("endless", "m1d1"), none);
  EXPECT_EQ(slot("endless", "y 2021m +2d3rd"), 372 + 31 + 2);
  EXPECT_EQ(slot("endless", "y2021 m2d3"), none);
  EXPECT_EQ(slot("endless", "y2021m2 d3"), none);
}

TEST(DefaultSlot, OtherTypesHaveNoSlots) {
  EXPECT_EQ(slot("", "day"), none);
  EXPECT_EQ(slot("hourly", "day"), none);
}

}  // namespace
