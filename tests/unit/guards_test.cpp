#include "station/guards.hpp"

#include <gtest/gtest.h>

#include <string>

#include "fuzz/scratch_folder.hpp"

namespace {

/// A schedule with an invalid time, and what the checker says of it.
class LongFinding : public testing::Test {
 protected:
  /// The text around the time in the line of the finding.
  std::string front() const { return path_ + ":9:9: error: invalid time '"; }
  static std::string back() { return "' [bad-time]"; }

  std::string complaint_about(const std::string& time) const {
    folder_.write(
        "a.schedule",
        "*daily\n{\nitem = a.mp4\nstart = 1:00\nend = 2:00\n}\n{\nitem = b.mp4\nstart = " + time +
            "\nend = 4:00\n}\n");
    return complaint_of_checker(path_, CheckLevel::errors, {"html"}, 1772704800);
  }

  ScratchFolder folder_;
  std::string path_ = folder_.path() + "/a.schedule";
  const std::string begin_ = "the checker finds errors: 1; the first: ";
};

TEST_F(LongFinding, LosesItsMiddle) {
  const std::string most(400 - front().size() - back().size(), 'x');
  EXPECT_EQ(complaint_about(most), begin_ + front() + most + back());
  EXPECT_EQ(complaint_about(most + "x"), begin_ + front() + std::string(200 - front().size(), 'x') +
                                             " ... " + std::string(200 - back().size(), 'x') +
                                             back());
}

TEST_F(LongFinding, KeepsItsCharactersWhole) {
  const auto letters = [](size_t bytes) {
    std::string text;
    for (; text.size() + 2 <= bytes;) {
      text += "é";
    }
    return text;
  };
  for (const std::string& first : {std::string(), std::string("x")}) {
    for (const std::string& last : {std::string(), std::string("x")}) {
      std::string written = first;
      written.append(letters(600)).append(last);
      std::string shown = begin_ + front();
      shown.append(first).append(letters(200 - front().size() - first.size())).append(" ... ");
      shown.append(letters(200 - back().size() - last.size())).append(last).append(back());
      EXPECT_EQ(complaint_about(written), shown);
    }
  }
}

}  // namespace
