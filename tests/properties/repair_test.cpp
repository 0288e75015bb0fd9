#include <gtest/gtest.h>

#include <memory>

#include "properties/random_items.hpp"
#include "properties/repair_checks.hpp"
#include "properties/seeds.hpp"
#include "properties/shrink.hpp"

namespace {

/// What is wrong with the repair of these items, and the fewest of them that show it.
std::string complaint_about(const Schedule& frame, const std::vector<ScheduleItem>& items) {
  if (complaint_about_repair(*with_items(frame, items)).empty()) {
    return {};
  }
  const auto fewest = with_items(frame, shrink(items, [&](const auto& rest) {
                                   return !complaint_about_repair(*with_items(frame, rest)).empty();
                                 }));
  return complaint_about_repair(*fewest) + "\nof:\n" + listing_of(*fewest);
}

TEST(RepairProperties, ItemsCoverTheUnitOnceAndNoneIsLost) {
  for_each_seed(400, [](uint64_t seed) {
    Random random(seed);
    const auto frame = random_frame(random);
    return complaint_about(*frame, random_items(random, frame->unit_length));
  });
}

}  // namespace
