#include "writers/append.hpp"

#include <gtest/gtest.h>

#include <ctime>

namespace {

std::tm new_years_eve(int year) {
  std::tm tm{};
  tm.tm_year = year - 1900;
  tm.tm_mon = 11;
  tm.tm_mday = 31;
  tm.tm_hour = 23;
  tm.tm_min = 4;
  tm.tm_sec = 5;
  return tm;
}

std::string date_and_time(int year) {
  std::string out;
  append_date_and_time(out, new_years_eve(year));
  return out;
}

std::string iso8601(long offset, const char* zone) {
  std::tm tm = new_years_eve(2024);
  tm.tm_gmtoff = offset;
  tm.tm_zone = zone;
  std::string out;
  append_iso8601(out, tm);
  return out;
}

TEST(Append, YearsHaveAtLeastFourDigits) {
  EXPECT_EQ(date_and_time(999), "0999-12-31 23:04:05");
  EXPECT_EQ(date_and_time(1000), "1000-12-31 23:04:05");
  EXPECT_EQ(date_and_time(9999), "9999-12-31 23:04:05");
  EXPECT_EQ(date_and_time(10000), "10000-12-31 23:04:05");
}

TEST(Append, OffsetsAreSignedHoursAndMinutes) {
  EXPECT_EQ(iso8601(0, "UTC"), "2024-12-31T23:04:05+0000");
  EXPECT_EQ(iso8601(20700, "+0545"), "2024-12-31T23:04:05+0545");
  EXPECT_EQ(iso8601(-12600, "NST"), "2024-12-31T23:04:05-0330");
}

TEST(Append, AZoneWithoutAKnownOffsetIsShownLikeUtc) {
  EXPECT_EQ(iso8601(0, "-00"), "2024-12-31T23:04:05+0000");
}

}  // namespace
