#include "platform/standalone/packed_tags.hpp"

#include <gtest/gtest.h>

namespace {

/// A length as it stands before a text.
std::string length(char size) {
  return size + std::string(7, '\0');
}

TEST(PackedTags, ComeBackAsTheyWere) {
  TagsRead result;
  result.tags.emplace("title", "Harbour");
  result.tags.emplace("artist", "b");
  result.tags.emplace("artist", "a");
  result.tags.emplace("", std::string("\0\xff", 2));
  const std::optional<TagsRead> back = unpack_tags(pack_tags(result));
  ASSERT_TRUE(back);
  EXPECT_EQ(back->outcome, TagsOutcome::read);
  EXPECT_EQ(back->tags, result.tags);
  for (const TagsOutcome outcome : {TagsOutcome::failed, TagsOutcome::spent}) {
    const std::optional<TagsRead> none = unpack_tags(pack_tags({outcome, {}}));
    ASSERT_TRUE(none);
    EXPECT_EQ(none->outcome, outcome);
    EXPECT_TRUE(none->tags.empty());
  }
}

TEST(PackedTags, AreAnOutcomeAndTextsBehindTheirLengths) {
  const std::optional<TagsRead> one = unpack_tags("r" + length(1) + "n" + length(2) + "vw");
  ASSERT_TRUE(one);
  EXPECT_EQ(one->tags, (Tags{{"n", "vw"}}));
  EXPECT_TRUE(unpack_tags("r"));
}

TEST(PackedTags, AnythingElseIsNothing) {
  for (const std::string& packed :
       {std::string(), std::string("x"), std::string(1, '\0'), "f" + length(0) + length(0),
        std::string("rn"), "r" + length(1), "r" + length(1) + "n", "r" + length(2) + "n",
        "r" + length(1) + "n" + length(3) + "vw", "r" + length(1) + "n" + length(0) + "x",
        "r" + std::string(8, '\xff') + "n", "r" + length(1) + "n" + std::string(8, '\xff')}) {
    EXPECT_FALSE(unpack_tags(packed)) << packed.size();
  }
}

}  // namespace
