#include "platform/media/media_type_database.hpp"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace std::string_literals;

TEST(MediaTypeDatabase, KnowsAnMp4FileByItsFirstBox) {
  EXPECT_EQ(known_media_type("\0\0\0\x18"
                             "ftypmp42\0\0\0\0mp42isom\0\0\0\x08"
                             "free"s),
            "video/mp4");
}

TEST(MediaTypeDatabase, TellsTheKindsOfAContainerApart) {
  EXPECT_EQ(known_media_type("RIFF\x24\0\0\1WAVEfmt \x10\0\0\0\1\0\2\0"s), "audio/x-wav");
  EXPECT_EQ(known_media_type("RIFF\x24\0\0\1AVI LIST\x5a\2\0\0hdrlavih"s), "video/x-msvideo");
}

TEST(MediaTypeDatabase, StepsBackFromADiskThatBeginsLikeAnMp4File) {
  std::string head =
      "\0\0\0\x18"
      "ftypmp42\0\0\0\0mp42isom"s;
  head.resize(512);
  EXPECT_EQ(known_media_type(head), "video/mp4");
  head[510] = '\x55';
  head[511] = '\xaa';
  EXPECT_EQ(known_media_type(head), "");
}

TEST(MediaTypeDatabase, StepsBackFromABootSectorThatBeginsLikeAnMp3Frame) {
  std::string head = "\xff\xfb\x90\x40"s;
  head.resize(512);
  EXPECT_EQ(known_media_type(head), "audio/mpeg");
  head[12] = '\x5b';  // the bytes of a sector
  head[21] = '\xf8';  // the kind of disk
  EXPECT_EQ(known_media_type(head), "");
  EXPECT_EQ(libmagic_type(head), "application/octet-stream");
}

TEST(MediaTypeDatabase, LeavesTextsToLibmagic) {
  EXPECT_EQ(known_media_type("RIFF, said the drum.\n"), "");
  EXPECT_EQ(libmagic_type("RIFF, said the drum.\n"), "text/plain");
  EXPECT_EQ(libmagic_type("<?xml version=\"1.0\"?>\n<a/>\n"), "text/xml");
}

TEST(MediaTypeDatabase, LeavesUnknownBytesToLibmagic) {
  EXPECT_EQ(known_media_type("\xc1\xc2\0\xc3"s), "");
  EXPECT_EQ(libmagic_type("\xc1\xc2\0\xc3"s), "application/octet-stream");
}

}  // namespace
