#include "platform/system/line_reader.hpp"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

namespace {

std::vector<std::string> pieces_of(LineReader reader) {
  std::vector<std::string> found;
  std::string_view piece;
  while (reader.read(piece)) {
    found.emplace_back(piece);
  }
  EXPECT_EQ(reader.error(), 0);
  return found;
}

/// The pieces that a file of that content gives, which are those of the content alone.
std::vector<std::string> pieces(const std::string& content, size_t longest_piece) {
  char path[] = "/tmp/line_reader_XXXXXX";
  FileDescriptor file(mkstemp(path));
  EXPECT_TRUE(file.is_open());
  EXPECT_EQ(write(file.get(), content.data(), content.size()),
            static_cast<ssize_t>(content.size()));
  FileDescriptor opened = open_regular_file(AT_FDCWD, path);
  unlink(path);
  std::vector<std::string> found = pieces_of(LineReader(std::move(opened), longest_piece));
  EXPECT_EQ(pieces_of(LineReader(content, longest_piece)), found);
  return found;
}

using Pieces = std::vector<std::string>;

TEST(LineReader, GivesEachLineWithItsLineFeed) {
  EXPECT_EQ(pieces("a\n\nb", 10), (Pieces{"a\n", "\n", "b"}));
  EXPECT_EQ(pieces("", 10), Pieces{});
  EXPECT_EQ(pieces("\n", 10), Pieces{"\n"});
}

TEST(LineReader, CutsALineThatIsTooLong) {
  EXPECT_EQ(pieces("abcdef\n", 3), (Pieces{"abc", "def", "\n"}));
  EXPECT_EQ(pieces("ab\ncdef", 3), (Pieces{"ab\n", "cde", "f"}));
}

TEST(LineReader, EndsAPieceAtANulByteAndLosesTheRestOfTheLine) {
  EXPECT_EQ(pieces(std::string("ab\0cd\nef\n", 9), 100), (Pieces{"ab", "ef\n"}));
  EXPECT_EQ(pieces(std::string("\0ab", 3), 100), Pieces{""});
  EXPECT_EQ(pieces(std::string("\0bcdef\n", 7), 3), (Pieces{"", "def", "\n"}));
}

TEST(LineReader, SeesANulByteAfterManyLinesWithoutOne) {
  constexpr size_t lines = 100'000;  // more than the buffer holds
  std::string content;
  for (size_t i = 0; i < lines; ++i) {
    content += "line\n";
  }
  content += std::string("ab\0cd\n", 6);
  Pieces expected(lines, "line\n");
  expected.push_back("ab");
  EXPECT_EQ(pieces(content, 100), expected);
}

TEST(LineReader, KeepsLinesWholeAcrossItsBuffer) {
  std::string content;
  Pieces expected;
  for (int i = 0; i < 40000; ++i) {
    expected.push_back("line " + std::to_string(i) + "\n");
    content += expected.back();
  }
  EXPECT_EQ(pieces(content, 1023), expected);
}

TEST(LineReader, ReadsOnBehindALineThatIsTooLong) {
  Pieces expected = {std::string(1023, 'x'), "y\n"};
  std::string content = expected[0] + expected[1];
  for (int i = 0; i < 40000; ++i) {
    expected.push_back("line " + std::to_string(i) + "\n");
    content += expected.back();
  }
  EXPECT_EQ(pieces(content, 1023), expected);
}

TEST(LineReader, TellsAReadThatFailsFromTheEnd) {
  std::string_view piece;
  LineReader unreadable(open_regular_file(AT_FDCWD, "/proc/self/mem"), 10);
  EXPECT_FALSE(unreadable.read(piece));
  EXPECT_EQ(unreadable.error(), EIO);
  LineReader readable(open_regular_file(AT_FDCWD, "/proc/self/stat"), 10000);
  EXPECT_TRUE(readable.read(piece));
  EXPECT_FALSE(readable.read(piece));
  EXPECT_EQ(readable.error(), 0);
}

TEST(LineReader, ReadsNothingFromADirectory) {
  LineReader reader(open_regular_file(AT_FDCWD, "/"), 10);
  std::string_view piece;
  EXPECT_FALSE(reader.read(piece));
}

}  // namespace
