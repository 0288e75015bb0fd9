#include "writers/time_text.hpp"

#include <gtest/gtest.h>

#include <limits>

#include "support/zone.hpp"

namespace {

TEST(TimeText, TextsAreLocal) {
  const Zone berlin("Europe/Berlin");
  EXPECT_EQ(time_to_iso8601(1709645400), "2024-03-05T14:30:00+0100");
  EXPECT_EQ(time_to_date(1709681400), "2024-03-06");
  EXPECT_EQ(time_to_clock(1709681400), "00:30");
}

TEST(TimeText, MinutesAreCountedBetweenTheirStarts) {
  const Zone utc("UTC");
  EXPECT_EQ(minutes_between(59, 60), "1");
  EXPECT_EQ(minutes_between(0, 119), "1");
  EXPECT_EQ(minutes_between(0, 0), "0");
}

TEST(TimeText, AnEndBeforeItsStartCountsAsAVeryLargeNumber) {
  const Zone utc("UTC");
  EXPECT_EQ(minutes_between(60, 0), "18446744073709551615");
}

TEST(TimeText, OrdinalsOfTeensAllEndAlike) {
  EXPECT_STREQ(ordinal_suffix(1), "st");
  EXPECT_STREQ(ordinal_suffix(2), "nd");
  EXPECT_STREQ(ordinal_suffix(3), "rd");
  EXPECT_STREQ(ordinal_suffix(4), "th");
  EXPECT_STREQ(ordinal_suffix(10), "th");
  EXPECT_STREQ(ordinal_suffix(11), "th");
  EXPECT_STREQ(ordinal_suffix(12), "th");
  EXPECT_STREQ(ordinal_suffix(13), "th");
  EXPECT_STREQ(ordinal_suffix(19), "th");
  EXPECT_STREQ(ordinal_suffix(20), "th");
  EXPECT_STREQ(ordinal_suffix(21), "st");
  EXPECT_STREQ(ordinal_suffix(31), "st");
  EXPECT_STREQ(ordinal_suffix(101), "st");
  EXPECT_STREQ(ordinal_suffix(112), "th");
}

TEST(TimeText, NamesOutOfRangeAreEmpty) {
  EXPECT_STREQ(month_name(0), "January");
  EXPECT_STREQ(month_name(11), "December");
  EXPECT_STREQ(month_name(12), "");
  EXPECT_STREQ(month_name(-1), "");
  EXPECT_STREQ(day_name(0), "Sunday");
  EXPECT_STREQ(day_name(6), "Saturday");
  EXPECT_STREQ(day_name(7), "");
  EXPECT_STREQ(day_name(-1), "");
}

TEST(TimeText, ATimeWithoutADateHasNoText) {
  const Zone utc("UTC");
  EXPECT_EQ(time_to_iso8601(std::numeric_limits<time_t>::max()), "");
  EXPECT_EQ(time_to_date(std::numeric_limits<time_t>::min()), "");
}

}  // namespace
