#include "publish/publish_state.hpp"

#include <gtest/gtest.h>

#include <string>

namespace {

PublishState example() {
  PublishState state;
  state.counts["kbt 1"] = {12, 1772733600};
  state.counts["early"] = {0, -5};
  state.pages["kbt 1.html"] = 0xfedcba9876543210U;
  state.pages["kbt 1-rovi.csv"] = 1;
  return state;
}

TEST(PublishState, IsReadAsItWasWritten) {
  PublishState state;
  ASSERT_TRUE(parse_state(text_of_state(example()), state));
  EXPECT_EQ(state.counts.size(), 2U);
  EXPECT_EQ(state.counts["kbt 1"].items, 12U);
  EXPECT_EQ(state.counts["kbt 1"].time, 1772733600);
  EXPECT_EQ(state.counts["early"].time, -5);
  EXPECT_EQ(state.pages, example().pages);
  ASSERT_TRUE(parse_state(text_of_state({}), state));
  EXPECT_TRUE(state.counts.empty());
}

TEST(PublishState, EndsWithTheFingerprintOfItsLines) {
  EXPECT_EQ(text_of_state(example()),
            "nv8x_schedule_publish state 1\n"
            "channel\tearly\t0\t-5\n"
            "channel\tkbt 1\t12\t1772733600\n"
            "page\tkbt 1-rovi.csv\t0000000000000001\n"
            "page\tkbt 1.html\tfedcba9876543210\n"
            "end\t55e60f7c5a38d24e\n");
}

TEST(PublishState, ThatIsDamagedAnywhereIsRefused) {
  const std::string whole = text_of_state(example());
  PublishState state;
  for (size_t place = 0; place < whole.size(); ++place) {
    std::string damaged = whole;
    damaged[place] = static_cast<char>(damaged[place] ^ 1);
    EXPECT_FALSE(parse_state(damaged, state)) << place;
    EXPECT_FALSE(parse_state(whole.substr(0, place), state)) << place;
    EXPECT_TRUE(state.counts.empty());
    EXPECT_TRUE(state.pages.empty());
  }
  EXPECT_FALSE(parse_state(whole + "\n", state));
}

}  // namespace
