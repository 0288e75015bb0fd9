#include "schedule/block_announce.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "properties/random_items.hpp"
#include "properties/repair_checks.hpp"
#include "properties/seeds.hpp"
#include "properties/shrink.hpp"

namespace {

void add_blocks(Random& random, Schedule& schedule) {
  static constexpr std::array<const char*, 4> announces = {"block", "block", "items", ""};
  for (const ScheduleItem& item : random_items(random, schedule.unit_length)) {
    ScheduleBlock& block = schedule.blocks[item.start];
    block.start = item.start;
    block.end = item.end;
    block.block = "Block " + std::to_string(item.start);
    block.announce = random.pick(announces);
  }
}

/// Whether something other than a filler begins in the block or ends in it. What begins at the
/// block's end does not count, even if it has no length.
bool holds_programme(const Schedule& schedule, const ScheduleBlock& block) {
  return std::ranges::any_of(schedule.schedule, [&](const auto& entry) {
    const ScheduleItem& item = entry.second;
    const bool ends_inside = item.end > block.start && item.end <= block.end;
    return !item.is_default && item.start < block.end && (item.start >= block.start || ends_inside);
  });
}

/// The item without what the block takes of it.
void cut(Schedule& schedule, const ScheduleBlock& block, ScheduleItem item) {
  if (item.start >= block.start && item.start < block.end) {
    if (item.end <= block.end) {
      return;
    }
    item.start = block.end;
  } else if (item.start < block.start && item.end > block.start) {
    item.end = block.start;
  }
  schedule.schedule[item.start] = item;
}

void announce(Schedule& schedule, const ScheduleBlock& block) {
  ScheduleItems items;
  items.swap(schedule.schedule);
  for (const auto& [start, item] : items) {
    cut(schedule, block, item);
  }
  ScheduleItem item;
  item.start = block.start;
  item.end = block.end;
  item.duration = static_cast<double>(block.end - block.start);
  item.item = block.block;
  item.block = block.block;
  item.is_block = true;
  item.block_announce = true;
  schedule.schedule[item.start] = item;
}

std::string complaint_about_blocks(const Schedule& frame, const std::vector<ScheduleItem>& items) {
  const auto schedule = with_items(frame, items);
  repair(*schedule);
  const auto expected = std::make_unique<Schedule>(*schedule);
  for (const auto& [start, block] : frame.blocks) {
    const bool as_one = block.announce == "block" ||
                        (block.announce != "items" && !holds_programme(*expected, block));
    if (as_signed(block.start) < as_signed(block.end) && as_one) {
      announce(*expected, block);
    }
  }
  block_announce_subst(*schedule);
  std::string complaint = complaint_about_order(*schedule);
  if (complaint.empty() && !is_same_listing(*schedule, *expected)) {
    complaint = "other items than expected:\n" + listing_of(*expected);
  }
  return complaint.empty() ? "" : complaint + "\nafter announcing:\n" + listing_of(*schedule);
}

TEST(BlockAnnounceProperties, BlocksTakeTheirTimeAndNothingElse) {
  for_each_seed(300, [](uint64_t seed) -> std::string {
    Random random(seed);
    const auto frame = random_frame(random);
    add_blocks(random, *frame);
    const std::vector<ScheduleItem> items = random_items(random, frame->unit_length);
    if (complaint_about_blocks(*frame, items).empty()) {
      return {};
    }
    const std::vector<ScheduleItem> fewest = shrink(
        items, [&](const auto& rest) { return !complaint_about_blocks(*frame, rest).empty(); });
    return complaint_about_blocks(*frame, fewest) + "\nof:\n" +
           listing_of(*with_items(*frame, fewest));
  });
}

}  // namespace
