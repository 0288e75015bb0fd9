#include "station/programme_texts.hpp"

#include <gtest/gtest.h>

#include <string>

#include "metadata/item_metadata.hpp"
#include "station/programme.hpp"

namespace {

/// The texts of an item with one entry of metadata.
ProgrammeTexts texts_with(const std::string& name, const std::string& value) {
  ScheduleItem item;
  item.item = "tide.mp4";
  item.metadata = {{name, value}};
  return texts_of_item(item, open_item_metadata(item).set);
}

TEST(CleanText, ReadsBytesThatAreNotUtf8AsWindows1252) {
  std::string bytes = "a";
  for (int byte = 0x80; byte <= 0xa0; ++byte) {
    bytes += static_cast<char>(byte);
  }
  EXPECT_EQ(clean_text(bytes + "\xa1\xff"
                               "b"),
            "a€ ‚ƒ„…†‡ˆ‰Š‹Œ Ž ‘’“”•–—˜™š›œ žŸ\u00a0¡ÿb");
}

TEST(CleanText, HasOnlyWhatXmlAllows) {
  EXPECT_EQ(clean_text(" a  b\x01\x1f"
                       "c\x7f"
                       "d\u0080\u009f"
                       "e\ufffe\uffff"
                       "f "),
            "a b c d e f");
  EXPECT_EQ(clean_text("!~\u00a0\ufffd\U00010000"), "!~\u00a0\ufffd\U00010000");
}

TEST(ProgrammeTexts, TakeADateOfFigures) {
  const auto date = [](const std::string& value) { return texts_with("date", value).date; };
  EXPECT_EQ(date("2024"), "2024");
  EXPECT_EQ(date("2024-03"), "202403");
  EXPECT_EQ(date("2024-03-05T18:00"), "20240305");
  EXPECT_EQ(date("2024-3-5"), "20240305");
  EXPECT_EQ(date("2024-3-15 18:00"), "20240315");
  EXPECT_EQ(date("2024-3"), "202403");
  for (const char* value : {"", "202", "20245", "2024035", "202403051", "March", "May!", "2024-",
                            "20-24", "2024-3-5-", "2024-123", "2024--5"}) {
    EXPECT_EQ(date(value), "") << value;
  }
}

TEST(ProgrammeTexts, TakeNumbersOfUpToFifteenFigures) {
  const auto season = [](const std::string& value) { return texts_with("season", value).season; };
  EXPECT_EQ(season(" 3 / 10"), "3");
  EXPECT_EQ(season("123456789012345"), "123456789012345");
  EXPECT_EQ(season("1234567890123456"), "");
  EXPECT_EQ(season("S3"), "");
}

TEST(ProgrammeTexts, ReadMarksByTheirFirstLetter) {
  for (const char* value : {"1", "9", "t", "True", "Yes"}) {
    EXPECT_TRUE(texts_with("hd", value).is_hd) << value;
  }
  for (const char* value : {"1", "true", "Y"}) {
    EXPECT_TRUE(texts_with("cc", value).has_captions) << value;
  }
  for (const char* value : {"0", "no", "false"}) {
    EXPECT_FALSE(texts_with("hd", value).is_hd) << value;
    EXPECT_FALSE(texts_with("cc", value).has_captions) << value;
  }
  EXPECT_FALSE(texts_with("cc", "2").has_captions);
}

TEST(ProgrammeTexts, DivideARatingAtItsLastSlash) {
  const auto rating = [](const std::string& value) {
    const ProgrammeTexts texts = texts_with("rating", value);
    return texts.rating_system + "|" + texts.rating;
  };
  EXPECT_EQ(rating("VCHIP/TV-PG"), "VCHIP|TV-PG");
  EXPECT_EQ(rating("a/b/c"), "a/b|c");
  EXPECT_EQ(rating("PG"), "|PG");
}

TEST(Programmes, HaveAStopOnlyBehindTheirStart) {
  const auto times = [](time_t stop) {
    Programme programme{};
    programme.start = 86400;
    programme.stop = stop;
    std::string out;
    append_programme(out, programme, "a", "");
    return out.substr(0, out.find('\n'));
  };
  const std::string start = R"(  <programme start="19700102000000 +0000")";
  EXPECT_EQ(times(86401), start + R"( stop="19700102000001 +0000" channel="a">)");
  EXPECT_EQ(times(86400), start + R"( channel="a">)");
  EXPECT_EQ(times(-1), start + R"( channel="a">)");
}

TEST(EpisodeNumbers, AreDecimal) {
  Programme programme{};
  programme.texts.season = "9";
  programme.texts.episode = "0120";
  std::string out;
  append_programme(out, programme, "a", "");
  EXPECT_NE(out.find(">8 . 119 . </episode-num>\n"), std::string::npos) << out;
  EXPECT_NE(out.find(">S09E120</episode-num>\n"), std::string::npos) << out;
}

}  // namespace
