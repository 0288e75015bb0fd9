#include "writers/listing_text.hpp"

#include <gtest/gtest.h>

namespace {

TEST(ListingText, QuotesAreDoubledAndLineFeedsBecomeBlanks) {
  EXPECT_EQ(csv_quote(""), "");
  EXPECT_EQ(csv_quote("a"), "\"a\"");
  EXPECT_EQ(csv_quote("say \"hi\", then\ngo\r"), "\"say \"\"hi\"\", then go\r\"");
  EXPECT_EQ(csv_quote("\""), "\"\"\"\"");
}

TEST(ListingText, TrimmingTakesSpacesAndTabsAlone) {
  std::string text = " \ta b\t ";
  trim_blanks(text);
  EXPECT_EQ(text, "a b");
  text = " \t ";
  trim_blanks(text);
  EXPECT_EQ(text, "");
  text = "\n a \r";
  trim_blanks(text);
  EXPECT_EQ(text, "\n a \r");
}

TEST(ListingText, TitlesComeFromTheProgramTheTitleOrTheFile) {
  EXPECT_EQ(listing_title({{"program", " P "}, {"title", "T"}}, "f.mp4"), "P");
  EXPECT_EQ(listing_title({{"title", "T"}}, "f.mp4"), "T");
  EXPECT_EQ(listing_title({{"program", " "}, {"title", "T"}}, "a/clip.mp4"), "clip");
  EXPECT_EQ(listing_title({}, "a.b/My_Show's.mp4"), "My Show s");
  EXPECT_EQ(listing_title({}, "clip.mpeg"), "clip.mpeg");
  EXPECT_EQ(listing_title({}, "clip."), "clip");
  EXPECT_EQ(listing_title({}, "a/"), "");
}

TEST(ListingText, FlagsGoByTheirFirstByte) {
  for (const char* yes : {"yes", "Y", "True", "t", "1", "10"}) {
    EXPECT_TRUE(is_yes(yes)) << yes;
  }
  for (const char* no : {"", "no", "0", "2", " yes", "on"}) {
    EXPECT_FALSE(is_yes(no)) << no;
  }
}

}  // namespace
