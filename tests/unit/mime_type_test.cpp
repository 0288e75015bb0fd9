#include "platform/media/mime_type.hpp"

#include <gtest/gtest.h>

#include <fstream>
#include <string>

namespace {

/// Resolves the table's escapes: \0, \n, \r, \t, \\, \xHH, and %{N:text} for N times the text,
/// which may hold further repeats but no other braces.
std::string bytes_of(const std::string& text) {
  std::string plain;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text.compare(i, 2, "%{") == 0) {
      const size_t colon = text.find(':', i);
      size_t close = text.find('}', colon);
      for (size_t inner = text.find("%{", colon); inner < close;
           inner = text.find("%{", inner + 1)) {
        close = text.find('}', close + 1);
      }
      const std::string repeated = bytes_of(text.substr(colon + 1, close - colon - 1));
      for (int n = std::stoi(text.substr(i + 2)); n > 0; --n) {
        plain += repeated;
      }
      i = close;
    } else if (text[i] == '\\') {
      ++i;
      switch (text.at(i)) {
        case '0':
          plain += '\0';
          break;
        case 'n':
          plain += '\n';
          break;
        case 'r':
          plain += '\r';
          break;
        case 't':
          plain += '\t';
          break;
        case 'x':
          plain += static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16));
          i += 2;
          break;
        default:
          plain += text[i];
      }
    } else {
      plain += text[i];
    }
  }
  return plain;
}

std::string known_type(const std::string& content) {
  if (is_transport_stream(content)) {
    return "video/mp2t";
  }
  const std::string_view type = sniff_schedule(content.substr(0, size_t{64} * 1024));
  return type.empty() ? "-" : std::string(type);
}

TEST(MimeType, EveryContentOfTheTableHasItsType) {
  std::ifstream table(TEST_DATA "/file_contents.txt");
  ASSERT_TRUE(table.is_open());
  std::string line;
  int contents = 0;
  while (std::getline(table, line)) {
    if (line.empty() || line.front() == '#') {
      continue;
    }
    const size_t first = line.find('\t');
    const size_t second = line.find('\t', first + 1);
    ASSERT_NE(second, std::string::npos) << line;
    EXPECT_EQ(known_type(bytes_of(line.substr(first + 1, second - first - 1))),
              line.substr(second + 1))
        << line;
    ++contents;
  }
  EXPECT_GE(contents, 50);
}

}  // namespace
