#include "platform/standalone/id3v2_hazards.hpp"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string frame(const std::string& id, char second_flags, const std::string& content) {
  return id + std::string(3, '\0') + static_cast<char>(content.size()) + '\0' + second_flags +
         content;
}

TEST(Id3v2Hazards, AHeaderIsKnownByItsSizeAndMark) {
  EXPECT_TRUE(is_id3v2_header(std::string("ID3\4\0\0\0\0\0\1", 10)));
  EXPECT_FALSE(is_id3v2_header(std::string("ID3\4\0\0\0\0\0", 9)));
  EXPECT_FALSE(is_id3v2_header(std::string("TAG\4\0\0\0\0\0\1", 10)));
}

TEST(Id3v2Hazards, AnyFlagMakesAHeaderUnusual) {
  EXPECT_FALSE(id3v2_header_is_unusual(std::string("ID3\4\0\0\0\0\0\1", 10)));
  EXPECT_TRUE(id3v2_header_is_unusual(std::string("ID3\4\0\x80\0\0\0\1", 10)));
  EXPECT_TRUE(id3v2_header_is_unusual(std::string("ID3\4\0\x40\0\0\0\1", 10)));
}

TEST(Id3v2Hazards, TextsDoNotUnfold) {
  EXPECT_FALSE(id3v2_may_unfold(""));
  EXPECT_FALSE(id3v2_may_unfold(frame("TIT2", 0, "\3title") + frame("COMM", 0, "\3engx\1")));
  EXPECT_FALSE(id3v2_may_unfold(std::string("\0\0\0\0\0\0\0\0\0\0\0\0", 12)));
}

TEST(Id3v2Hazards, CompressedFramesOfBothVersionsAndChaptersMayUnfold) {
  EXPECT_TRUE(id3v2_may_unfold(frame("TIT2", 0, "\3t") + frame("TPE1", '\x80', "\1\2")));
  EXPECT_TRUE(id3v2_may_unfold(frame("TIT2", '\x08', "\1\2")));
  EXPECT_TRUE(id3v2_may_unfold(frame("CHAP", 0, "c")));
  EXPECT_TRUE(id3v2_may_unfold("CTOC"));
}

TEST(Id3v2Hazards, AHeaderCutOffDoesNotUnfold) {
  EXPECT_FALSE(id3v2_may_unfold(frame("TIT2", '\x08', "").substr(0, 9)));
}

}  // namespace
