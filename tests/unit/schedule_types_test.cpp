#include "platform/syntax/schedule_types.hpp"

#include <gtest/gtest.h>

namespace {

TEST(ScheduleTypes, UnitsAreThoseOfThePaddedCalendar) {
  EXPECT_EQ(find_schedule_type("daily")->unit_length, 86400U);
  EXPECT_EQ(find_schedule_type("weekly")->unit_length, 604800U);
  EXPECT_EQ(find_schedule_type("monthly")->unit_length, 2678400U);
  EXPECT_EQ(find_schedule_type("yearly")->unit_length, 32140800U);
  EXPECT_EQ(find_schedule_type("endless")->unit_length, 482112000U);
  EXPECT_EQ(find_schedule_type("interval")->unit_length, 0U);
  EXPECT_EQ(find_schedule_type(""), nullptr);
  EXPECT_EQ(find_schedule_type("Daily"), nullptr);
}

TEST(ScheduleTypes, UnitsCountTheDaysAroundAReportTime) {
  EXPECT_EQ(find_schedule_type("daily")->unit_days, 1);
  EXPECT_EQ(find_schedule_type("weekly")->unit_days, 7);
  EXPECT_EQ(find_schedule_type("monthly")->unit_days, 31);
  EXPECT_EQ(find_schedule_type("yearly")->unit_days, 372);
  EXPECT_EQ(find_schedule_type("endless")->unit_days, 93);
}

TEST(ScheduleTypes, SectionsAndMimeTypesFindTheirType) {
  EXPECT_EQ(find_schedule_type_of_section("defaults, of the day")->text, "daily");
  EXPECT_EQ(find_schedule_type_of_section("defaults, day of the interval")->text, "interval");
  EXPECT_EQ(find_schedule_type_of_section("defaults,"), nullptr);
  EXPECT_EQ(find_schedule_type_of_section(""), nullptr);
  for (const ScheduleType& type : schedule_types()) {
    if (type.unit_length > 0) {
      EXPECT_EQ(find_schedule_type_of_mime_type(type.mime_type), &type) << type.text;
    }
  }
  EXPECT_EQ(find_schedule_type_of_mime_type(""), nullptr);
  EXPECT_EQ(find_schedule_type_of_mime_type("video/mp4"), nullptr);
}

}  // namespace
