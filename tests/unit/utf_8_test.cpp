#include "platform/syntax/utf_8.hpp"

#include <gtest/gtest.h>

#include <string>

namespace {

/// The first character's number and what is left; -1: no UTF-8.
std::pair<long, std::string> taken(std::string_view text) {
  const std::optional<uint32_t> c = take_utf_8(text);
  return {c ? static_cast<long>(*c) : -1, std::string(text)};
}

TEST(Utf8, TakesTheShortestFormOfEachLength) {
  EXPECT_EQ(taken("ab"), std::pair(0x61L, std::string("b")));
  EXPECT_EQ(taken("\xc2\x80x"), std::pair(0x80L, std::string("x")));
  EXPECT_EQ(taken("\xe0\xa0\x80"), std::pair(0x800L, std::string()));
  EXPECT_EQ(taken("\xed\x9f\xbf"), std::pair(0xd7ffL, std::string()));
  EXPECT_EQ(taken("\xf0\x90\x80\x80"), std::pair(0x10000L, std::string()));
  EXPECT_EQ(taken("\xf4\x8f\xbf\xbf!"), std::pair(0x10ffffL, std::string("!")));
}

std::string written(uint32_t c) {
  std::string out = "a";
  append_utf_8(out, c);
  return out;
}

TEST(Utf8, WritesTheFirstAndTheLastOfEachLength) {
  EXPECT_EQ(written(0), std::string("a\0", 2));
  EXPECT_EQ(written(0x7f), "a\x7f");
  EXPECT_EQ(written(0x80), "a\xc2\x80");
  EXPECT_EQ(written(0x7ff), "a\xdf\xbf");
  EXPECT_EQ(written(0x800), "a\xe0\xa0\x80");
  EXPECT_EQ(written(0xd800), "a\xed\xa0\x80");
  EXPECT_EQ(written(0xffff), "a\xef\xbf\xbf");
  EXPECT_EQ(written(0x10000), "a\xf0\x90\x80\x80");
  EXPECT_EQ(written(0x10ffff), "a\xf4\x8f\xbf\xbf");
}

TEST(Utf8, LeavesTheTextAloneWhereItBeginsWithNone) {
  for (const char* text :
       {"\x80", "\xc1\xbf", "\xc3", "\xc3(", "\xe0\x9f\xbf", "\xed\xa0\x80", "\xe2\x82",
        "\xf0\x8f\xbf\xbf", "\xf4\x90\x80\x80", "\xf5\x80\x80\x80", "\xff"}) {
    EXPECT_EQ(taken(text), std::pair(-1L, std::string(text)));
  }
}

TEST(Utf8, FindsTheFirstByteThatIsNotValid) {
  const std::string ascii = "more than eight letters";
  EXPECT_EQ(find_no_utf_8(""), std::string::npos);
  EXPECT_EQ(find_no_utf_8(ascii), std::string::npos);
  EXPECT_EQ(find_no_utf_8(ascii + "\xc3\xa9"), std::string::npos);
  EXPECT_EQ(find_no_utf_8(ascii + "\xc3"), ascii.size());
  EXPECT_EQ(find_no_utf_8("\xc3\xa9\xff" + ascii + "\xff"), 2U);
  // Each place within the eight bytes that are looked at together.
  for (size_t at = 0; at < ascii.size(); ++at) {
    std::string text = ascii;
    text[at] = '\x80';
    EXPECT_EQ(find_no_utf_8(text), at);
  }
}

}  // namespace
