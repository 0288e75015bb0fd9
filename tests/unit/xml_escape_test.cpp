#include "writers/xml_escape.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

TEST(XmlEscape, ReplacesFiveBytesAndNoOther) {
  EXPECT_EQ(xml_escape("<a href=\"x\">'&'</a>"),
            "&lt;a href=&quot;x&quot;&gt;&apos;&amp;&apos;&lt;/a&gt;");
  EXPECT_EQ(xml_escape("\x01\x7f\xc3\xa4\xff\t\n"), "\x01\x7f\xc3\xa4\xff\t\n");
  EXPECT_EQ(xml_escape(""), "");
  EXPECT_EQ(xml_escape("&amp;"), "&amp;amp;");
}

TEST(XmlEscape, StopsAtANulByte) {
  using namespace std::string_view_literals;
  EXPECT_EQ(xml_escape("a\0<b"sv), "a");
  EXPECT_EQ(xml_escape("<\0<b"sv), "&lt;");
  EXPECT_EQ(xml_escape("\0<b"sv), "");
  EXPECT_EQ(xml_escape("a\0"sv), "a");
  EXPECT_EQ(xml_escape("a<b\0\0&"sv), "a&lt;b");
  std::string page = "before ";
  append_xml_escaped(page, "a\0<b"sv);
  EXPECT_EQ(page, "before a");
}

}  // namespace
