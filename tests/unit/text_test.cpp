#include "platform/syntax/text.hpp"

#include <gtest/gtest.h>

#include <array>
#include <initializer_list>
#include <string>
#include <string_view>

namespace {

std::string joined(const std::optional<NameValue>& pair) {
  return pair ? std::string(pair->name) + "|" + std::string(pair->value) : "none";
}

std::string plain(std::string_view line) {
  return joined(divide_name_equ_value_pair(line));
}

std::string loose(std::string_view line) {
  return joined(divide_name_equ_value_pair_compat_maybe_loose(line, line.front()));
}

std::string defaults(std::string_view line) {
  const auto entry = schedule_defaults_name_equ_value_and_clarifier(line);
  return entry ? std::string(entry->name) + "|" + std::string(entry->value) + "|" +
                     std::string(entry->clarifier)
               : "none";
}

template <typename Text>
void expect_chomped(std::string_view written, std::string_view expected) {
  Text line(written);
  chomp(line);
  EXPECT_EQ(line, expected);
}

TEST(Text, ChompTakesEveryLineEndInPlace) {
  for (const auto& [line, expected] :
       std::initializer_list<std::array<std::string_view, 2>>{{"a\r\n", "a"},
                                                              {"a\n\r\n\n", "a"},
                                                              {"a\rb", "a\rb"},
                                                              {"\n", ""},
                                                              {"", ""},
                                                              {"a \n", "a "}}) {
    expect_chomped<std::string>(line, expected);
    expect_chomped<std::string_view>(line, expected);
  }
}

TEST(Text, LinesAreTakenOneByOne) {
  std::string_view text = "a\r\n\nb";
  EXPECT_EQ(take_line(text), "a");
  EXPECT_EQ(take_line(text), "");
  EXPECT_EQ(take_line(text), "b");
  EXPECT_EQ(text, "");
  text = "a\n";
  EXPECT_EQ(take_line(text), "a");
  EXPECT_EQ(text, "");
}

TEST(Text, PairsSplitAtTheFirstEqualsSign) {
  EXPECT_EQ(plain("a=b"), "a|b");
  EXPECT_EQ(plain(" a b \t=\t c = d "), "a b|c = d");
  EXPECT_EQ(plain("a="), "none");
  EXPECT_EQ(plain("=b"), "none");
  EXPECT_EQ(plain(" = b"), "none");
  EXPECT_EQ(plain("a: b"), "none");
  EXPECT_EQ(plain(""), "none");
}

TEST(Text, TopLevelPairsMayHaveOlderForms) {
  EXPECT_EQ(loose("global default = x"), "global default|x");
  EXPECT_EQ(loose("=global default=x"), "global default|x");
  EXPECT_EQ(loose("== global default = x=y"), "global default|x=y");
  EXPECT_EQ(loose("global default: x:y"), "global default|x:y");
  EXPECT_EQ(loose("=global default: x"), "global default|x");
  EXPECT_EQ(loose("a:b=c"), "a:b|c");
  EXPECT_EQ(loose("="), "none");
  EXPECT_EQ(loose("global default"), "none");
}

TEST(Text, DefaultsMayBearAClarifier) {
  EXPECT_EQ(defaults("mon = a.mp4"), "mon|a.mp4|");
  EXPECT_EQ(defaults("mon [night] = a.mp4"), "mon|a.mp4|night");
  EXPECT_EQ(defaults("mon[ late night ]=a.mp4"), "mon|a.mp4|late night");
  EXPECT_EQ(defaults("mon [] = a.mp4"), "mon|a.mp4|");
  EXPECT_EQ(defaults("[x] = a.mp4"), "none");
  EXPECT_EQ(defaults("mon] = a.mp4"), "mon]|a.mp4|");
  EXPECT_EQ(defaults("mon = a [b]"), "mon|a [b]|");
}

TEST(Text, FileNamesFollowTheLastSlash) {
  EXPECT_EQ(file_name_of("/a/b/clip.mp4"), "clip.mp4");
  EXPECT_EQ(file_name_of("clip.mp4"), "clip.mp4");
  EXPECT_EQ(file_name_of("a/"), "");
}

TEST(Text, CaseFollowsTheCLocale) {
  EXPECT_EQ(lower_case("AbZ\xc3\x84-1"), "abz\xc3\x84-1");
  EXPECT_EQ(to_upper('z'), 'Z');
  EXPECT_EQ(to_upper('{'), '{');
}

TEST(Text, OldPairsMayBeginWithATab) {
  EXPECT_EQ(loose("\t =a = b"), "a|b");
  EXPECT_EQ(loose("\ta: b"), "a|b");
}

}  // namespace
