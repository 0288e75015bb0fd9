#include "writers/item_walk.hpp"

#include <gtest/gtest.h>

#include <memory>

#include "schedule/unit_times.hpp"
#include "support/zone.hpp"

namespace {

TEST(ItemWalk, TheWindowHoldsItsStartAndNotItsEnd) {
  const Zone berlin("Europe/Berlin");
  auto schedule = std::make_unique<Schedule>();
  schedule->type = "daily";
  compute_unit_times(*schedule, 1711882800);  // 2024-03-31, the clocks go forward at two
  const time_t noon = 1711879200;
  const time_t one_o_clock = noon + 3600;
  EXPECT_TRUE(item_in_window(*schedule, noon, one_o_clock, 12 * 3600));
  EXPECT_TRUE(item_in_window(*schedule, noon, one_o_clock, 13 * 3600 - 1));
  EXPECT_FALSE(item_in_window(*schedule, noon, one_o_clock, 12 * 3600 - 1));
  EXPECT_FALSE(item_in_window(*schedule, noon, one_o_clock, 13 * 3600));
}

TEST(ItemWalk, AnItemWithoutTimeIsInNoWindow) {
  const Zone berlin("Europe/Berlin");
  auto schedule = std::make_unique<Schedule>();
  schedule->type = "daily";
  compute_unit_times(*schedule, 1711882800);
  EXPECT_FALSE(item_in_window(*schedule, -10, schedule->unit_end, 2 * 3600 + 1800));
}

}  // namespace
