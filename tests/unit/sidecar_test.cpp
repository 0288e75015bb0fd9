#include "platform/media/sidecar.hpp"

#include <gtest/gtest.h>

#include <string>

#include "fuzz/scratch_folder.hpp"

namespace {

constexpr size_t mib = 1024UL * 1024;

struct Reading {
  FileMetadata metadata;
  std::string warning;
};

Reading read(const std::string& content) {
  const ScratchFolder folder;
  folder.write("a.mp4.metadata", content);
  testing::internal::CaptureStderr();
  FileMetadata metadata = read_sidecar(folder.handle(), "a.mp4").value_or(FileMetadata());
  return {std::move(metadata), testing::internal::GetCapturedStderr()};
}

std::string repeated(const std::string& line, size_t times) {
  std::string text;
  for (size_t i = 0; i < times; ++i) {
    text += line;
  }
  return text;
}

TEST(Sidecar, AnEmptyOneIsNotAMissingOne) {
  const ScratchFolder folder;
  folder.write("a.mp4.metadata", "");
  EXPECT_TRUE(read_sidecar(folder.handle(), "a.mp4").has_value());
  EXPECT_FALSE(read_sidecar(folder.handle(), "b.mp4").has_value());
}

TEST(Sidecar, AsManyEntriesAndGroupsAsThereMayBeAreRead) {
  const Reading reading = read("[g]\n" + repeated("a=b\n", 499'999) + "# the end\n\nno entry\n");
  EXPECT_EQ(reading.metadata.entries.size(), 499'999);
  EXPECT_EQ(reading.warning, "");
}

TEST(Sidecar, EntriesAfterTheMostAreNotReadAndItSaysSo) {
  const Reading reading =
      read("# the beginning\n[g]\n" + repeated("a=b\n", 499'999) + "c=d\ne=f\n");
  ASSERT_EQ(reading.metadata.entries.size(), 499'999);
  EXPECT_EQ(reading.metadata.entries.back().name, "a");
  EXPECT_EQ(reading.warning,
            "WARNING: 'a.mp4.metadata' has more than 500000 entries, only 500001 lines are read\n");
}

TEST(Sidecar, ALineThatEndsAtTheLimitIsTheLastOneRead) {
  const std::string first = "a=" + std::string(8 * mib - 3, 'a') + "\n";
  const Reading reading = read(first + first + "c=d\n");
  ASSERT_EQ(reading.metadata.entries.size(), 2);
  EXPECT_EQ(reading.metadata.entries.back().value.size(), 8 * mib - 3);
  EXPECT_EQ(reading.warning,
            "WARNING: 'a.mp4.metadata' is larger than 16 MiB, only 2 lines are read\n");
}

TEST(Sidecar, OneLineLongerThanTheLimitIsNoEntry) {
  const Reading reading = read("a=" + std::string(16 * mib, 'a'));
  EXPECT_TRUE(reading.metadata.entries.empty());
  EXPECT_EQ(reading.warning,
            "WARNING: 'a.mp4.metadata' is larger than 16 MiB, only 0 lines are read\n");
}

}  // namespace
