#include "platform/media/id3v2_tag.hpp"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string header(char version) {
  return std::string("ID3") + version + std::string(5, '\0') + '\1';
}

std::string number(size_t value, unsigned bits, size_t digits) {
  std::string text;
  for (size_t i = digits; i-- > 0;) {
    text += static_cast<char>((value >> (i * bits)) & ((1U << bits) - 1));
  }
  return text;
}

/// A frame of version 2.4, which writes seven bits a byte.
std::string frame(const std::string& id, const std::string& content, char second_flags = 0) {
  return id + number(content.size(), 7, 4) + '\0' + second_flags + content;
}

/// A frame of version 2.3.
std::string plain_frame(const std::string& id, const std::string& content) {
  return id + number(content.size(), 8, 4) + std::string(2, '\0') + content;
}

/// A frame of version 2.2.
std::string short_frame(const std::string& id, const std::string& content) {
  return id + number(content.size(), 8, 3) + content;
}

std::string without_pictures(char version, std::string tag) {
  remove_id3v2_frames(header(version), tag, 1000000);
  return tag;
}

bool may_unfold(const std::string& tag, char version = 4) {
  return id3v2_may_unfold(header(version), tag);
}

const std::string title = "\3title";
const std::string picture(300000, '\xd8');
const std::string padding(50, '\0');

TEST(Id3v2Tag, AHeaderIsKnownByItsSizeAndMark) {
  EXPECT_TRUE(is_id3v2_header(std::string("ID3\4\0\0\0\0\0\1", 10)));
  EXPECT_FALSE(is_id3v2_header(std::string("ID3\4\0\0\0\0\0", 9)));
  EXPECT_FALSE(is_id3v2_header(std::string("TAG\4\0\0\0\0\0\1", 10)));
}

TEST(Id3v2Tag, AnyFlagMakesAHeaderUnusual) {
  EXPECT_FALSE(id3v2_header_is_unusual(std::string("ID3\4\0\0\0\0\0\1", 10)));
  EXPECT_TRUE(id3v2_header_is_unusual(std::string("ID3\4\0\x80\0\0\0\1", 10)));
  EXPECT_TRUE(id3v2_header_is_unusual(std::string("ID3\4\0\x40\0\0\0\1", 10)));
}

TEST(Id3v2Tag, PicturesOfEveryVersionGo) {
  const std::string before = frame("TIT2", title);
  const std::string behind = frame("TPE1", "\3artist");
  EXPECT_EQ(without_pictures(4, before + frame("APIC", picture) + behind + padding),
            before + behind + padding);
  EXPECT_EQ(without_pictures(4, frame("APIC", picture) + frame("APIC", "\3small") + padding),
            padding);
  EXPECT_EQ(without_pictures(4, before + frame("APIC", picture)), before);
  EXPECT_EQ(without_pictures(3, plain_frame("APIC", picture) + plain_frame("TIT2", title)),
            plain_frame("TIT2", title));
  EXPECT_EQ(without_pictures(2, short_frame("TT2", title) + short_frame("PIC", picture) + padding),
            short_frame("TT2", title) + padding);
}

TEST(Id3v2Tag, WhatIsNeverShownGoesToo) {
  const std::string title_frame = frame("TIT2", title);
  EXPECT_EQ(without_pictures(4, frame("PRIV", picture) + title_frame + frame("GEOB", "x")),
            title_frame);
  EXPECT_EQ(without_pictures(2, short_frame("GEO", picture) + short_frame("TT2", title)),
            short_frame("TT2", title));
}

TEST(Id3v2Tag, FramesAboveTheLimitGoAndAreNamed) {
  const std::string longest = frame("USLT", std::string(990, 'x'));
  const std::string too_long = frame("COMM", std::string(991, 'x'));
  std::string tag = longest + too_long + frame("APIC", picture) + frame("TIT2", title);
  EXPECT_EQ(remove_id3v2_frames(header(4), tag, 1000), std::vector<std::string>{"COMM"});
  EXPECT_EQ(tag, longest + frame("TIT2", title));
}

TEST(Id3v2Tag, WhatIsNoWholePictureStays) {
  const std::string cut_off = frame("APIC", picture).substr(0, 1000);
  for (const std::string& tag : {std::string(), padding, frame("TIT2", title), cut_off,
                                 std::string("APIC"), "junk" + frame("APIC", picture)}) {
    EXPECT_EQ(without_pictures(4, tag), tag);
  }
  EXPECT_EQ(without_pictures(4, frame("APIC", "x") + cut_off), cut_off);
}

TEST(Id3v2Tag, NothingGoesFromATagThatAnyFlagChanges) {
  for (const char flags : {'\x80', '\x40', '\x10'}) {
    std::string unusual = header(3);
    unusual[5] = flags;
    const std::string whole = plain_frame("APIC", picture) + plain_frame("TIT2", title);
    std::string tag = whole;
    remove_id3v2_frames(unusual, tag, 1000);
    EXPECT_EQ(tag, whole);
  }
}

TEST(Id3v2Tag, ASizeThatMayBeReadInTwoWaysEndsTheSearch) {
  // Written as in version 2.3, as some programs do; read by seven bits it ends amid the picture.
  const std::string tag = plain_frame("APIC", picture) + frame("TIT2", title);
  EXPECT_EQ(without_pictures(4, tag), tag);
  // By seven bits this one has 172 bytes, and what stands there is neither a frame nor padding.
  const std::string short_one = plain_frame("APIC", std::string(300, 'x')) + frame("TIT2", title);
  EXPECT_EQ(without_pictures(4, short_one), short_one);
  // A byte of more than seven bits makes it no such number, wherever that would lead.
  const std::string amid = std::string(128, 'x') + "TIT2" + std::string(252, 'x');
  EXPECT_EQ(without_pictures(4, plain_frame("APIC", amid)), plain_frame("APIC", amid));
  const std::string blank = std::string(128, 'x') + std::string(256, '\0');
  EXPECT_EQ(without_pictures(4, plain_frame("APIC", blank)), plain_frame("APIC", blank));
  // What looks like padding by seven bits may be amid the picture, too.
  const std::string dark =
      plain_frame("APIC", std::string(172, 'x') + std::string(128, '\0')) + frame("TIT2", title);
  EXPECT_EQ(without_pictures(4, dark), dark);
  // The last frame, with padding behind it that could be either's.
  const std::string last = frame("APIC", std::string(200, 'x')) + std::string(500, '\0');
  EXPECT_EQ(without_pictures(4, last), std::string(500, '\0'));
}

TEST(Id3v2Tag, TextsDoNotUnfold) {
  EXPECT_FALSE(may_unfold(""));
  EXPECT_FALSE(may_unfold(frame("TIT2", title) + frame("COMM", "\3engx\1")));
  EXPECT_FALSE(may_unfold(frame("TCON", "\3(17)") + frame("TCOM", "\3composer")));
  EXPECT_FALSE(may_unfold(std::string("\0\0\0\0\0\0\0\0\0\0\0\0", 12)));
}

TEST(Id3v2Tag, CompressedFramesOfBothVersionsAndChaptersMayUnfold) {
  EXPECT_TRUE(may_unfold(frame("TIT2", title) + frame("TPE1", "\1\2", '\x80')));
  EXPECT_TRUE(may_unfold(frame("TIT2", "\1\2", '\x08')));
  EXPECT_TRUE(may_unfold(frame("CHAP", "c")));
  EXPECT_TRUE(may_unfold("CTOC"));
}

TEST(Id3v2Tag, LongListsOfGenresMayUnfold) {
  const std::string genres(3000, '(');
  EXPECT_TRUE(may_unfold(frame("TCON", genres)));
  EXPECT_TRUE(may_unfold(plain_frame("TCON", genres), 3));
  EXPECT_TRUE(may_unfold(short_frame("TCO", genres), 2));
  EXPECT_FALSE(may_unfold(plain_frame("TCON", genres.substr(0, 2048)), 3));
  EXPECT_FALSE(may_unfold(short_frame("TCO", genres.substr(0, 2048)), 2));
  EXPECT_FALSE(may_unfold("TCON"));
}

TEST(Id3v2Tag, AHeaderCutOffDoesNotUnfold) {
  EXPECT_FALSE(may_unfold(frame("TIT2", "", '\x08').substr(0, 9)));
}

}  // namespace
