#include "schedule/block_announce.hpp"

#include <gtest/gtest.h>

#include <memory>

namespace {

class BlockAnnounce : public testing::Test {
 protected:
  void add_block(uint64_t start, uint64_t end) {
    ScheduleBlock& block = schedule_->blocks[start];
    block.start = start;
    block.end = end;
    block.block = "Late Club";
    block.announce = "block";
  }

  const ScheduleItems& announced() {
    EXPECT_TRUE(block_announce_subst(*schedule_));
    return schedule_->schedule;
  }

 private:
  std::unique_ptr<Schedule> schedule_ = std::make_unique<Schedule>();
};

TEST_F(BlockAnnounce, ABlockStandsInAnEmptySchedule) {
  add_block(100, 200);
  const ScheduleItems& items = announced();
  ASSERT_EQ(items.size(), 1U);
  const ScheduleItem& item = items.at(100);
  EXPECT_EQ(item.item, "Late Club");
  EXPECT_EQ(item.end, 200U);
  EXPECT_TRUE(item.is_block);
  EXPECT_TRUE(item.block_announce);
}

TEST_F(BlockAnnounce, ABlockWithoutStartOrEndIsPassedOver) {
  add_block(100, no_time);
  add_block(no_time, 100);
  EXPECT_TRUE(announced().empty());
}

}  // namespace
