#include "schedule/airing_expansion.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <sstream>

#include "schedule/unit_times.hpp"
#include "support/zone.hpp"

namespace {

/// The pieces of [start, end) in a schedule of that type around the report time.
std::string pieces(const char* type, time_t report_time, uint64_t start, uint64_t end) {
  auto schedule = std::make_unique<Schedule>();
  schedule->type = type;
  compute_unit_times(*schedule, report_time);
  ScheduleItem item;
  item.label = "kept";
  item.start = start;
  item.end = end;
  std::ostringstream text;
  for (const ScheduleItem& piece : expand_airing(*schedule, item)) {
    text << piece.start << '-' << piece.end << (piece.label == "kept" ? " " : "! ");
  }
  return text.str();
}

constexpr uint64_t day = 86400;
constexpr uint64_t hour = 3600;

TEST(AiringExpansion, CutsAtMidnight) {
  const Zone utc("UTC");
  constexpr time_t friday = 1709294400;  // 2024-03-01
  EXPECT_EQ(pieces("weekly", friday, day + 22 * hour, 2 * day + 2 * hour),
            "165600-172800 172800-180000 ");
  EXPECT_EQ(pieces("weekly", friday, day + 10 * hour, day + 11 * hour), "122400-126000 ");
  EXPECT_EQ(pieces("weekly", friday, day + 23 * hour, 2 * day), "169200-172800 172800-172800 ");
}

TEST(AiringExpansion, TheLastMidnightIsSecondZero) {
  const Zone utc("UTC");
  EXPECT_EQ(pieces("weekly", 1709294400, 7 * day - hour, 7 * day), "601200-0 0-604800 ");
}

TEST(AiringExpansion, AnEndWithoutTimeOrBeforeTheStartIsNotCut) {
  const Zone berlin("Europe/Berlin");
  constexpr time_t change = 1711882800;  // Sunday 2024-03-31
  EXPECT_EQ(pieces("weekly", change, 0, 2 * hour + 60), "0-7260 ");
  EXPECT_EQ(pieces("weekly", change, 5 * day, 4 * day), "432000-345600 ");
}

TEST(AiringExpansion, ADayThatAZoneLeftOutEndsTheCutting) {
  const Zone apia("Pacific/Apia");  // 2011-12-30 did not exist
  constexpr time_t december = 1325196000;
  // From the 29th to the 2nd of January, over the missing day; whatever the cuts, it ends.
  const std::string text = pieces("monthly", december, 28 * day + 12 * hour, 31 * day + 12 * hour);
  EXPECT_EQ(text.substr(0, text.find('-')), "2462400");
  EXPECT_EQ(text.substr(text.rfind('-')), "-2721600 ");
}

}  // namespace
