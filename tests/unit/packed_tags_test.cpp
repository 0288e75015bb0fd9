#include "platform/media/packed_tags.hpp"

#include <gtest/gtest.h>

#include <utility>

namespace {

/// A length as it stands before a text.
std::string length(char size) {
  return size + std::string(7, '\0');
}

TEST(PackedTags, ComeBackAsTheyWere) {
  TagsRead result;
  result.left_out = "lyrics";
  result.tags.emplace("title", "Harbour");
  result.tags.emplace("artist", "b");
  result.tags.emplace("artist", "a");
  result.tags.emplace("", std::string("\0\xff", 2));
  const std::optional<TagsRead> back = unpack_tags(pack_tags(result));
  ASSERT_TRUE(back);
  EXPECT_EQ(back->outcome, TagsOutcome::read);
  EXPECT_EQ(back->tags, result.tags);
  EXPECT_EQ(back->left_out, result.left_out);
  for (const TagsOutcome outcome : {TagsOutcome::failed, TagsOutcome::spent}) {
    const std::optional<TagsRead> none = unpack_tags(pack_tags({outcome, {}, {}}));
    ASSERT_TRUE(none);
    EXPECT_EQ(none->outcome, outcome);
    EXPECT_TRUE(none->tags.empty());
  }
}

TEST(PackedTags, AreAnOutcomeAndTextsBehindTheirLengths) {
  const std::optional<TagsRead> one =
      unpack_tags("r" + length(1) + "x" + length(1) + "n" + length(2) + "vw");
  ASSERT_TRUE(one);
  EXPECT_EQ(one->tags, (Tags{{"n", "vw"}}));
  EXPECT_EQ(one->left_out, "x");
  EXPECT_TRUE(unpack_tags("r" + length(0)));
}

TEST(PackedTags, AnythingElseIsNothing) {
  const std::string none = "r" + length(0);
  for (const std::string& packed :
       {std::string(), std::string("x"), std::string(1, '\0'), "f" + length(0), std::string("r"),
        "r" + length(1), none + "n", none + length(1), none + length(1) + "n",
        none + length(2) + "n", none + length(1) + "n" + length(3) + "vw",
        none + length(1) + "n" + length(0) + "x", none + std::string(8, '\xff') + "n",
        none + length(1) + "n" + std::string(8, '\xff')}) {
    EXPECT_FALSE(unpack_tags(packed)) << packed.size();
  }
}

TEST(PackedTags, TheLargestAreLeftOutUntilTheRestFits) {
  TagsRead result;
  for (const auto& [name, size] : {std::pair("a", 400), {"b", 1000}, {"c", 900}, {"d", 500}}) {
    result.tags.emplace(name, std::string(static_cast<size_t>(size), 'x'));
  }
  const Tags whole = result.tags;
  leave_out_largest(result, 10000);
  EXPECT_EQ(result.tags, whole);
  EXPECT_EQ(result.left_out, "");
  leave_out_largest(result, 1300);
  EXPECT_EQ(result.left_out, "b, c");
  EXPECT_EQ(result.tags.size(), 2);
  EXPECT_TRUE(result.tags.contains("a") && result.tags.contains("d"));
  EXPECT_LE(pack_tags(result).size(), 1300);
}

TEST(PackedTags, NamesOfWhatIsLeftOutFitIntoAMessage) {
  std::string left_out;
  add_left_out(left_out, "\xa9lyr");
  add_left_out(left_out, "a\nb" + std::string(100, 'c'));
  EXPECT_EQ(left_out, "?lyr, a?b" + std::string(37, 'c'));
  for (int i = 0; i < 1000; ++i) {
    add_left_out(left_out, "x");
  }
  EXPECT_TRUE(left_out.ends_with(", x, ...")) << left_out;
  EXPECT_LE(left_out.size(), 300 - 8);
}

}  // namespace
