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
  EXPECT_EQ(pieces("weekly", friday, day, 2 * day - 1), "86400-172799 ");
  EXPECT_EQ(pieces("weekly", friday, 2 * day - 1, 2 * day), "172799-172800 172800-172800 ");
  EXPECT_EQ(pieces("weekly", friday, day, day), "86400-86400 ");
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

TEST(AiringExpansion, ADayThatAZoneLeftOutHasNoPiece) {
  const Zone apia("Pacific/Apia");  // 2011-12-30 did not exist
  constexpr time_t december = 1325196000;
  EXPECT_EQ(pieces("monthly", december, 28 * day + 12 * hour, 31 * day + 12 * hour),
            "2462400-2592000 2592000-0 0-2721600 ");
}

TEST(AiringExpansion, AGapAtMidnightWithoutDaylightSavingCutsBehindIt) {
  const Zone rio_branco("America/Rio_Branco");  // no hour from 0 to 1 on 2008-06-24
  EXPECT_EQ(pieces("weekly", 1214240400, day + 12 * hour, 3 * day + 12 * hour),
            "129600-176400 176400-259200 259200-302400 ");
}

TEST(AiringExpansion, AMidnightThatComesTwiceCutsOnce) {
  const Zone st_johns("America/St_Johns");  // 00:01 of 2006-10-29 became 23:01 of the 28th
  EXPECT_EQ(pieces("weekly", 1162090800, 5 * day + 22 * hour, 6 * day + hour),
            "511200-518400 518400-522000 ");
  EXPECT_EQ(pieces("monthly", 1162090800, 27 * day + 22 * hour, 29 * day),
            "2412000-2419200 2419200-2505600 2505600-2505600 ");
}

}  // namespace
