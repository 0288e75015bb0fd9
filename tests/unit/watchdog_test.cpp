#include "schedule/watchdog.hpp"

#include <gtest/gtest.h>
#include <unistd.h>

namespace {

TEST(Watchdog, BitesAfterAMinuteUnlessItIsCancelled) {
  arm_watchdog();
  EXPECT_EQ(alarm(0), 60U);
  arm_watchdog();
  cancel_watchdog();
  EXPECT_EQ(alarm(0), 0U);
}

}  // namespace
