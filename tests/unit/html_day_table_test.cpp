#include "writers/html_day_table.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "platform/system/output.hpp"
#include "support/zone.hpp"

namespace {

constexpr time_t new_year = 1704067200;  // Monday, 1 January 2024

/// What html_open_day_table prints for a schedule of that type.
std::string printed(const char* type, time_t day_start) {
  auto schedule = std::make_unique<Schedule>();
  schedule->type = type;
  testing::internal::CaptureStdout();
  html_open_day_table(*schedule, day_start);
  finish_output();
  return testing::internal::GetCapturedStdout();
}

/// The anchor and the two links of a bar, in order.
std::string links(const char* type, time_t day_start) {
  const std::string bar = printed(type, day_start);
  std::string found;
  for (const std::string mark :
       {"<a name=\"", "align=\"right\" width=\"35%\"><a class=\"scheddayselect\" href=\"",
        "align=\"left\" width=\"35%\"><a class=\"scheddayselect\" href=\""}) {
    const size_t begin = bar.find(mark);
    if (begin != std::string::npos) {
      const size_t text = begin + mark.size();
      found += bar.substr(text, bar.find('"', text) - text);
    }
    found += ' ';
  }
  return found;
}

TEST(HtmlDayTable, AnchorsFollowTheTypesOwnCalendar) {
  const Zone utc("UTC");
  EXPECT_EQ(links("daily", new_year), " # # ");
  EXPECT_EQ(links("weekly", new_year), "weekly1 #weekly0 #weekly2 ");
  EXPECT_EQ(links("monthly", new_year), "monthly0 #monthly0 #monthly1 ");
  EXPECT_EQ(links("yearly", new_year), "yearly0d0 #yearly0d0 #yearly0d1 ");
  EXPECT_EQ(links("endless", new_year - 86400),
            "endless2023m11d30 #endless2023m11d29 #endless2023m11d30 ");
  EXPECT_EQ(links("yearly", new_year + 31 * 86400), "yearly1d0 #yearly0d30 #yearly1d1 ");
}

TEST(HtmlDayTable, OtherTypesHaveNoTable) {
  const Zone utc("UTC");
  EXPECT_EQ(printed("interval", new_year), "");
  EXPECT_TRUE(jump_script("interval").empty());
}

TEST(HtmlDayTableDeathTest, ADayWithoutLocalDateEndsTheProcess) {
  const Zone utc("UTC");
  EXPECT_DEATH(printed("daily", 9223372036854775807),
               "void html_open_day_table\\(Schedule&, time_t\\): Assertion `tm != NULL' failed");
}

}  // namespace
