#include "writers/xml_escape.hpp"

#include <gtest/gtest.h>

namespace {

TEST(XmlEscape, ReplacesFiveBytesAndNoOther) {
  EXPECT_EQ(xml_escape("<a href=\"x\">'&'</a>"),
            "&lt;a href=&quot;x&quot;&gt;&apos;&amp;&apos;&lt;/a&gt;");
  EXPECT_EQ(xml_escape("\x01\x7f\xc3\xa4\xff\t\n"), "\x01\x7f\xc3\xa4\xff\t\n");
  EXPECT_EQ(xml_escape(""), "");
  EXPECT_EQ(xml_escape("&amp;"), "&amp;amp;");
}

TEST(XmlEscape, StopsAtANulByte) {
  EXPECT_EQ(xml_escape("a\0<b"), "a");
}

}  // namespace
