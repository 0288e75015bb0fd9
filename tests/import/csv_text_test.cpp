// Tables as text, and their encodings.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/syntax/csv_text.hpp"
#include "platform/syntax/text_encoding.hpp"

using namespace std::string_literals;

namespace {

using Rows = std::vector<CsvRow>;

Rows rows_of(std::string_view text, char separator = ',') {
  CsvMistake mistake;
  const auto rows = read_csv(text, separator, mistake);
  return rows ? *rows
              : Rows{{"mistake",
                      std::to_string(mistake.row) + ":" + std::to_string(mistake.column)}};
}

TEST(CsvText, Rows) {
  EXPECT_EQ(rows_of(""), Rows());
  EXPECT_EQ(rows_of("a,b\nc,d\n"), (Rows{{"a", "b"}, {"c", "d"}}));
  EXPECT_EQ(rows_of("a,b\r\nc,d"), (Rows{{"a", "b"}, {"c", "d"}}));
  EXPECT_EQ(rows_of("a\rb\r"), (Rows{{"a"}, {"b"}}));
  EXPECT_EQ(rows_of("a\n\n\nb\n"), (Rows{{"a"}, {}, {}, {"b"}}));
  EXPECT_EQ(rows_of("a\r\n\r\nb\r\n"), (Rows{{"a"}, {}, {"b"}}));
  EXPECT_EQ(rows_of(",,\n"), (Rows{{"", "", ""}}));
  EXPECT_EQ(rows_of("a;b,c;d\n", ';'), (Rows{{"a", "b,c", "d"}}));
  EXPECT_EQ(rows_of("a\tb\t\tc\n", '\t'), (Rows{{"a", "b", "", "c"}}));
}

TEST(CsvText, Quotes) {
  EXPECT_EQ(rows_of("\"a,b\",\"c\"\"d\"\n"), (Rows{{"a,b", "c\"d"}}));
  EXPECT_EQ(rows_of("\"two\r\nlines\",x\n"), (Rows{{"two\nlines", "x"}}));
  EXPECT_EQ(rows_of("\" a \", b \n"), (Rows{{" a ", "b"}}));
  EXPECT_EQ(rows_of("\"\"\n"), (Rows{{""}}));
}

TEST(CsvText, WrongQuotesHaveAPlace) {
  EXPECT_EQ(rows_of("a,b\nc,d\"e\n"), (Rows{{"mistake", "2:2"}}));
  EXPECT_EQ(rows_of("a,\"b\"c\n"), (Rows{{"mistake", "1:2"}}));
  EXPECT_EQ(rows_of("a\nb,\"c\nd\n"), (Rows{{"mistake", "2:2"}}));
}

TEST(CsvText, WrittenCellsAreReadBack) {
  const CsvRow cells = {"",    "plain", "a,b",  "a;b",  "\"",  "two\nlines",
                        " x ", "'",     "\"\"", "a\"b", "\tx", "="};
  for (const char separator : {',', ';', '\t'}) {
    std::string text;
    for (const std::string& cell : cells) {
      text += text.empty() && &cell == cells.data() ? "" : std::string(1, separator);
      append_csv_cell(text, cell, separator);
    }
    EXPECT_EQ(rows_of(text + "\n", separator), Rows{cells}) << text;
  }
}

TEST(CsvText, SeparatorIsFoundOut) {
  EXPECT_EQ(find_csv_separator("a,b\n"), ',');
  EXPECT_EQ(find_csv_separator("a;b;c,d\n"), ';');
  EXPECT_EQ(find_csv_separator("a\tb\n"), '\t');
  EXPECT_EQ(find_csv_separator("Plan\n\na;b\n"), ';');
  EXPECT_EQ(find_csv_separator("\"a,b,c\";d\n"), ';');
  EXPECT_EQ(find_csv_separator("a\n"), ',');
  EXPECT_EQ(find_csv_separator(""), ',');
}

std::string utf_8_of(const std::string& bytes, const std::string& encoding = "") {
  std::string valid;
  const auto text = text_as_utf_8(bytes, encoding, valid);
  return text ? *text : "not after " + valid;
}

TEST(TextEncoding, IsFoundOutOrNamed) {
  EXPECT_EQ(utf_8_of("\xc3\xa4"), "\xc3\xa4");
  EXPECT_EQ(utf_8_of("\xef\xbb\xbfx"), "x");
  EXPECT_EQ(utf_8_of("\xff\xfex\0\xe4\0"s), "x\xc3\xa4");
  EXPECT_EQ(utf_8_of("\xfe\xff\0x\0\xe4"s), "x\xc3\xa4");
  EXPECT_EQ(utf_8_of("\xe4\x80", "Windows-1252"), "\xc3\xa4\xe2\x82\xac");
  EXPECT_EQ(utf_8_of("\xef\xbb\xbf\xc3\xa4", "Windows-1252"), "\xc3\xa4");
  EXPECT_EQ(utf_8_of(std::string(100000, '\xe4'), "Windows-1252").size(), 200000);
}

TEST(TextEncoding, WrongBytes) {
  EXPECT_EQ(utf_8_of("ab\xe4"
                     "c"),
            "not after ab");
  EXPECT_EQ(utf_8_of("\xff\xfex\0y"s), "not after x");
  EXPECT_EQ(utf_8_of("ab\x81", "Windows-1252"), "not after ab");
  EXPECT_TRUE(is_known_encoding("ISO-8859-15"));
  EXPECT_FALSE(is_known_encoding("no-such-encoding"));
  EXPECT_FALSE(is_known_encoding(""));
}

}  // namespace
