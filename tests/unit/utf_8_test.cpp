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

TEST(Utf8, LeavesTheTextAloneWhereItBeginsWithNone) {
  for (const char* text :
       {"\x80", "\xc1\xbf", "\xc3", "\xc3(", "\xe0\x9f\xbf", "\xed\xa0\x80", "\xe2\x82",
        "\xf0\x8f\xbf\xbf", "\xf4\x90\x80\x80", "\xf5\x80\x80\x80", "\xff"}) {
    EXPECT_EQ(taken(text), std::pair(-1L, std::string(text)));
  }
}

}  // namespace
