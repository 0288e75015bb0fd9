#include "metadata/play_log.hpp"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

namespace {

/// A scratch directory with a context bound to it.
class PlayLogFile : public testing::Test {
 protected:
  void SetUp() override {
    char path[] = "/tmp/play_log_XXXXXX";
    ASSERT_NE(mkdtemp(path), nullptr);
    directory_ = path;
    context_.options = 0;
    context_.directory = open(path, O_RDONLY | O_DIRECTORY);
    ASSERT_GE(context_.directory, 0);
  }

  void TearDown() override {
    close(context_.directory);
    for (const char* name : {"/play.log", "/play.log.tmp"}) {
      unlink((directory_ + name).c_str());
      rmdir((directory_ + name).c_str());
    }
    rmdir(directory_.c_str());
  }

  std::string content(const char* name = "/play.log") const {
    std::ifstream file(directory_ + name);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
  }

  bool exists(const char* name) const {
    struct stat status = {};
    return lstat((directory_ + name).c_str(), &status) == 0;
  }

  std::string directory_;
  metadata_v4_context context_{};
};

TEST_F(PlayLogFile, IsWrittenOneObjectALineInTimeOrder) {
  PlayLog log;
  log[1700000000] = {"media/b.mp4", {{"title", "B \"quoted\""}, {"episode", "\xff"}}};
  log[-5] = {"", {}};
  write_play_log(&context_, log);
  EXPECT_EQ(content(),
            "{\"metadata\": {}, \"path\": \"\", \"timestamp\": -5}\n"
            "{\"metadata\": {\"episode\": \"\xff\", \"title\": \"B \\\"quoted\\\"\"}, "
            "\"path\": \"media/b.mp4\", \"timestamp\": 1700000000}\n");
  EXPECT_FALSE(exists("/play.log.tmp"));
}

TEST_F(PlayLogFile, IsReadBackAsItWasWritten) {
  PlayLog log;
  log[1700000000] = {"a\nb\t\x01", {{"", "empty name"}, {"x", ""}, {"y", "\xe2\x80\xa8 \xc3\xa4"}}};
  log[9007199254740993] = {"c", {}};
  write_play_log(&context_, log);
  PlayLog read;
  read_play_log(&context_, read);
  ASSERT_EQ(read.size(), log.size());
  for (const auto& [timestamp, entry] : log) {
    EXPECT_EQ(read[timestamp].path, entry.path);
    EXPECT_EQ(read[timestamp].metadata, entry.metadata);
  }
}

TEST_F(PlayLogFile, AddsNothingWhenItCannotBeRead) {
  ASSERT_EQ(symlink("/proc/self/mem", (directory_ + "/play.log").c_str()), 0);
  PlayLog log;
  log[1] = {"known before", {}};
  read_play_log(&context_, log);
  ASSERT_EQ(log.size(), 1U);
  EXPECT_EQ(log[1].path, "known before");
}

TEST_F(PlayLogFile, ReplacesWhatIsKnownOfTheSameTime) {
  std::ofstream(directory_ + "/play.log") << "{\"timestamp\": 1, \"path\": \"logged\"}\n";
  PlayLog log;
  log[1] = {"known before", {}};
  log[2] = {"known alone", {}};
  read_play_log(&context_, log);
  EXPECT_EQ(log[1].path, "logged");
  EXPECT_EQ(log[2].path, "known alone");
}

TEST_F(PlayLogFile, GivesTheWantedEntriesAloneAndOfThoseTheLast) {
  std::ofstream(directory_ + "/play.log") << R"({"timestamp": 1, "path": "a"}
{"timestamp": 2, "path": "b"}
{"timestamp": 2, "path": "c"}
{"timestamp": 3, "path": "d"}
)";
  PlayLog read;
  read_play_log(&context_, read, [](int64_t timestamp) { return timestamp == 2; });
  ASSERT_EQ(read.size(), 1U);
  EXPECT_EQ(read.at(2).path, "c");
}

TEST_F(PlayLogFile, IsEmptyWhenNothingAired) {
  write_play_log(&context_, {});
  EXPECT_TRUE(exists("/play.log"));
  EXPECT_EQ(content(), "");
}

TEST_F(PlayLogFile, StaysAsItIsWhenTheNewOneCannotBeWritten) {
  PlayLog old;
  old[1] = {"old", {}};
  write_play_log(&context_, old);
  const std::string before = content();
  PlayLog log;
  log[2] = {std::string(100000, 'x'), {}};
  // A limit on the size of files fails the write as a full disk does.
  rlimit unlimited{};
  getrlimit(RLIMIT_FSIZE, &unlimited);
  const rlimit small{4096, unlimited.rlim_max};
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &small);
  write_play_log(&context_, log);
  setrlimit(RLIMIT_FSIZE, &unlimited);
  std::signal(SIGXFSZ, handler);
  EXPECT_EQ(content(), before);
  EXPECT_FALSE(exists("/play.log.tmp"));
}

TEST_F(PlayLogFile, IsNotWrittenThroughALinkInItsPlace) {
  ASSERT_EQ(symlink("elsewhere", (directory_ + "/play.log.tmp").c_str()), 0);
  write_play_log(&context_, {});
  EXPECT_FALSE(exists("/play.log"));
  EXPECT_FALSE(exists("/elsewhere"));
}

TEST_F(PlayLogFile, StaysOutWhenADirectoryIsInItsPlace) {
  ASSERT_EQ(mkdir((directory_ + "/play.log").c_str(), 0755), 0);
  write_play_log(&context_, {});
  EXPECT_FALSE(exists("/play.log.tmp"));
}

TEST(PlayLog, NeedsAnOpenDirectory) {
  PlayLog log;
  const metadata_v4_context closed{0, -1};
  read_play_log(nullptr, log);
  read_play_log(&closed, log);
  write_play_log(nullptr, log);
  write_play_log(&closed, log);
  EXPECT_TRUE(log.empty());
}

}  // namespace
