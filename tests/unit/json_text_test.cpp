#include "platform/syntax/json_text.hpp"

#include <gtest/gtest.h>

namespace {

std::string json(std::string_view text) {
  std::string out;
  append_json_string(out, text);
  return out;
}

TEST(JsonText, EscapesWhatJsonNeedsEscaped) {
  EXPECT_EQ(json("\"\\\b\f\n\r\t"), R"("\"\\\b\f\n\r\t")");
  EXPECT_EQ(json(std::string_view("\0\x01\x1f\x20\x7f", 5)), "\"\\u0000\\u0001\\u001f \x7f\"");
  EXPECT_EQ(json("/<>&'"), "\"/<>&'\"");
}

TEST(JsonText, EscapesLineSeparators) {
  EXPECT_EQ(json("a\xe2\x80\xa8"
                 "b\xe2\x80\xa9"),
            "\"a\\u2028b\\u2029\"");
  EXPECT_EQ(json("\xe2\x80\xaa\xe2\x80"), "\"\xe2\x80\xaa\xe2\x80\"");
  EXPECT_EQ(json("\xe2"), "\"\xe2\"");
}

TEST(JsonText, CopiesEveryOtherByte) {
  EXPECT_EQ(json("\xc3\xa4\xff\xfe"), "\"\xc3\xa4\xff\xfe\"");
  EXPECT_EQ(json(""), "\"\"");
}

TEST(JsonText, HalfASurrogatePairBecomesItsThreeBytes) {
  EXPECT_EQ(with_lone_surrogates_as_bytes("\"\\udcff\""), "\"\xed\xb3\xbf\"");
  EXPECT_EQ(with_lone_surrogates_as_bytes("\\uD800\\uDbFf\\udc00"), "\xed\xa0\x80\\uDbFf\\udc00");
  EXPECT_EQ(with_lone_surrogates_as_bytes("\\udfff\\ud7ff\\ue000"), "\xed\xbf\xbf\\ud7ff\\ue000");
  EXPECT_EQ(with_lone_surrogates_as_bytes("\\ud83d\\ude00"), "\\ud83d\\ude00");
  EXPECT_EQ(with_lone_surrogates_as_bytes("\\\\udcff \\n\\u00e9"), "\\\\udcff \\n\\u00e9");
}

TEST(JsonText, EscapesThatAreNoneStay) {
  for (const char* text :
       {"", "\\", "a\\u", "\\ud83", "\\ud8g0", "\\ud83\"\\", "\\u d83d", "\\u-d83"}) {
    EXPECT_EQ(with_lone_surrogates_as_bytes(text), text);
  }
}

}  // namespace
