#include "schedule/schedule_reader.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <fstream>
#include <memory>
#include <string>
#include <type_traits>

namespace {

static_assert(std::is_same_v<decltype(Schedule::defaults), std::array<std::string, 5580>>);

/// Reads a file of that text into the record.
void read_text(Schedule& schedule, const char* text) {
  const std::string path = testing::TempDir() + "reader_test.schedule";
  std::ofstream(path) << text;
  EXPECT_TRUE(read_schedule_file(schedule, path.c_str()));
  std::remove(path.c_str());
}

TEST(ScheduleReader, EverySlotWithoutAnItemOfItsOwnGetsTheGlobalDefault) {
  const auto schedule = std::make_unique<Schedule>();
  read_text(*schedule,
            "global default = early.ts\n*weekly\ndefaults, day of the week {\nmon = news.ts\n}\n"
            "global default = late.ts\n");
  EXPECT_EQ(schedule->defaults[0], "late.ts");
  EXPECT_EQ(schedule->defaults[1], "news.ts");
  EXPECT_EQ(schedule->defaults[5579], "late.ts");
  EXPECT_EQ(std::ranges::count(schedule->defaults, "late.ts"), 5579);
}

TEST(ScheduleReader, EverySlotStaysEmptyWithoutDefaults) {
  const auto schedule = std::make_unique<Schedule>();
  read_text(*schedule, "*daily\n");
  EXPECT_EQ(std::ranges::count(schedule->defaults, ""), 5580);
}

TEST(ScheduleReader, AnotherFileReplacesEverySlot) {
  const auto schedule = std::make_unique<Schedule>();
  read_text(*schedule, "*weekly\ndefaults, day of the week {\nmon = news.ts\n}\n");
  EXPECT_EQ(schedule->defaults[1], "news.ts");
  read_text(*schedule, "*daily\ndefaults, of the day {\nday = day.ts\n}\n");
  EXPECT_EQ(schedule->defaults[0], "day.ts");
  EXPECT_EQ(std::ranges::count(schedule->defaults, ""), 5579);
}

}  // namespace
