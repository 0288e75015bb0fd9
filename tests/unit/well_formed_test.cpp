#include "station/well_formed.hpp"

#include <gtest/gtest.h>
#include <sys/mman.h>

#include <string>

#include "platform/system/file.hpp"

namespace {

std::string complaint_about(const std::string& format, const std::string& text) {
  const FileDescriptor file(memfd_create("document", MFD_CLOEXEC));
  EXPECT_TRUE(write_fully(file.get(), "<" + text + "\xff"));
  return complaint_about_document(format, file.get(), 1, text.size());
}

TEST(ComplaintAboutDocument, XmlMustBeWellFormed) {
  EXPECT_EQ(complaint_about("xml", "<a>&amp; \xc3\xa9</a>\n"), "");
  EXPECT_EQ(complaint_about("xml", ""), "the document is empty");
  EXPECT_EQ(complaint_about("xml", "<a>\n&</a>"),
            "the document is not well-formed XML: line 2: not well-formed (invalid token)");
  EXPECT_EQ(complaint_about("xml", "<a>\n<b></a>"),
            "the document is not well-formed XML: line 2: mismatched tag");
  EXPECT_EQ(complaint_about("xml", "<a>"),
            "the document is not well-formed XML: line 1: no element found");
  EXPECT_NE(complaint_about("xml", "<a>\xe9</a>"), "");
}

TEST(ComplaintAboutDocument, JsonMustBeUtf8) {
  const std::string bad = "the document has bytes that are not UTF-8";
  EXPECT_EQ(complaint_about("json", "{\"\xf0\x9f\x8e\xac\": \"\xc3\xa9\"}"), "");
  EXPECT_EQ(complaint_about("json", "\"\xe9\""), bad);
  EXPECT_EQ(complaint_about("json", "\"\xed\xa0\x80\""), bad);
  EXPECT_EQ(complaint_about("json", "\"\xc3"), bad);
  EXPECT_EQ(complaint_about("json", "\xa9"), bad);
}

std::string around(const std::string& both_ends, const char* middle) {
  return std::string(both_ends).append(middle).append(both_ends);
}

TEST(ComplaintAboutDocument, CharactersMayLieOnTheEndsOfPieces) {
  constexpr size_t piece = 256UL * 1024;
  for (size_t front = piece - 5; front <= piece + 1; ++front) {
    const std::string begin(front, 'x');
    EXPECT_EQ(complaint_about("json", around(begin, "\xf0\x9f\x8e\xac")), "") << front;
    EXPECT_EQ(complaint_about("json", around(begin, "\xc2\xbf")), "") << front;
    EXPECT_NE(complaint_about("json", around(begin, "\xf0\x9f\x8e")), "") << front;
    EXPECT_EQ(complaint_about("xml", "<a>" + around(begin, "\xf0\x9f\x8e\xac") + "</a>"), "")
        << front;
  }
}

TEST(ComplaintAboutDocument, OtherFormatsMayHoldAnything) {
  for (const char* format : {"html", "rovi", "gracenote"}) {
    EXPECT_EQ(complaint_about(format, "&\xff<"), "");
  }
}

}  // namespace
