#include "platform/time/parse_time.hpp"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

namespace {

/// `\t` and `\s` in the table stand for a tab and a blank.
std::string unescape(const std::string& text) {
  std::string plain;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\\' && i + 1 < text.size() && (text[i + 1] == 't' || text[i + 1] == 's')) {
      plain += text[++i] == 't' ? '\t' : ' ';
    } else {
      plain += text[i];
    }
  }
  return plain;
}

std::string parsed(const std::string& text) {
  std::tm tm{};
  long microseconds = 0;
  if (!schedule_parse_time(text, tm, microseconds)) {
    return "invalid";
  }
  std::ostringstream fields;
  fields << tm.tm_year << ' ' << tm.tm_mon << ' ' << tm.tm_mday << ' ' << tm.tm_wday << ' '
         << tm.tm_hour << ' ' << tm.tm_min << ' ' << tm.tm_sec << ' ' << microseconds;
  return fields.str();
}

TEST(ParseTime, EveryFormOfTheTableGivesItsFields) {
  std::ifstream table(TEST_DATA "/time_forms.txt");
  ASSERT_TRUE(table.is_open());
  std::string line;
  int forms = 0;
  while (std::getline(table, line)) {
    if (line.empty() || line.front() == '#') {
      continue;
    }
    const size_t tab = line.find('\t');
    ASSERT_NE(tab, std::string::npos) << line;
    EXPECT_EQ(parsed(unescape(line.substr(0, tab))), line.substr(tab + 1)) << line;
    ++forms;
  }
  EXPECT_GE(forms, 250);
}

TEST(ParseTime, TheCallersMicrosecondsStayWithoutAFraction) {
  std::tm tm{};
  long microseconds = 7;
  EXPECT_TRUE(schedule_parse_time("14:30", tm, microseconds));
  EXPECT_EQ(microseconds, 7);
}

TEST(ParseTime, BlanksMayBeManyButAreNoText) {
  const std::string blanks(100, ' ');
  EXPECT_EQ(parsed("Mon" + blanks + "18:30"), parsed("Mon 18:30"));
  EXPECT_EQ(parsed("Mon 18:30"), "120 0 1 1 18 30 0 0");
  EXPECT_EQ(parsed("Mon" + blanks + "x"), "invalid");
}

}  // namespace
