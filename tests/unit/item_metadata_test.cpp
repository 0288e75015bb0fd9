#include "metadata/item_metadata.hpp"

#include <gtest/gtest.h>

namespace {

TEST(ItemMetadata, ABlockIsAnnouncedByItsOwnMarkAlone) {
  ScheduleItem item;
  item.is_block = true;
  item.label = "Late Club";
  ItemMetadata metadata;
  metadata.announce = 1;
  EXPECT_EQ(derive_announce(metadata, item), 0);
  item.block_announce = true;
  metadata.announce = 0;
  EXPECT_EQ(derive_announce(metadata, item), 1);
}

}  // namespace
