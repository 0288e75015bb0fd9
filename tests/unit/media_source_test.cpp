#include "platform/media/media_source.hpp"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <array>
#include <optional>
#include <string>

#include "platform/system/file.hpp"

namespace {

std::string numbered_bytes(size_t size) {
  std::string bytes;
  for (size_t i = 0; i < size; ++i) {
    bytes += static_cast<char>(i % 251);
  }
  return bytes;
}

FileDescriptor file_with(const std::string& content) {
  FileDescriptor file(memfd_create("media", MFD_CLOEXEC));
  EXPECT_TRUE(write_fully(file.get(), content));
  return file;
}

std::string read(const MediaSource& source, long offset, size_t size) {
  std::string bytes(size, '?');
  const std::optional<size_t> count = source.read_at(bytes.data(), size, offset);
  EXPECT_TRUE(count);
  bytes.resize(count.value_or(0));
  return bytes;
}

TEST(MediaSource, KeptPartsAreThePartsOfTheFile) {
  const std::string content = numbered_bytes(20000);
  const FileDescriptor file = file_with(content);
  MediaSource source(file.get(), 20000);
  ASSERT_TRUE(source.read_head());
  EXPECT_EQ(source.head(), content.substr(0, 4096));
  EXPECT_EQ(source.page_at(0), content.substr(0, 4096));
  EXPECT_EQ(source.page_at(9000), content.substr(9000, 4096));
  EXPECT_EQ(source.page_at(10000), content.substr(10000, 4096)) << "it overlaps the page before";
  for (const long offset : {0L, 4000L, 4096L, 9999L, 10000L, 14000L, 14096L, 19990L}) {
    for (const size_t size : {0UL, 1UL, 100UL, 8192UL, 20000UL}) {
      EXPECT_EQ(read(source, offset, size), content.substr(static_cast<size_t>(offset), size))
          << offset << " " << size;
    }
  }
  EXPECT_EQ(source.page_at(19000), content.substr(19000));
  EXPECT_EQ(source.page_at(20000), "");
  EXPECT_EQ(read(source, 30000, 10), "");
}

TEST(MediaSource, AShortFileIsReadOnce) {
  const std::string content = numbered_bytes(100);
  FileDescriptor file = file_with(content);
  MediaSource source(file.get(), 100);
  ASSERT_TRUE(source.read_head());
  file.reset();
  EXPECT_EQ(source.head(), content);
  EXPECT_EQ(read(source, 0, 100), content);
  EXPECT_EQ(read(source, 90, 10), content.substr(90));
}

TEST(MediaSource, AFileWhoseSizeIsNotKnownHasAHead) {
  const FileDescriptor file = file_with("some bytes");
  MediaSource source(file.get(), 0);
  ASSERT_TRUE(source.read_head());
  EXPECT_EQ(source.head(), "some bytes");
}

TEST(MediaSource, AFileThatCannotBeReadHasNoHead) {
  MediaSource source(-1, 100);
  EXPECT_FALSE(source.read_head());
  EXPECT_EQ(source.head(), "");
}

TEST(MediaSource, WhatHasNoOffsetsIsNotRead) {
  std::array<int, 2> ends{};
  ASSERT_EQ(pipe(ends.data()), 0);
  const FileDescriptor from(ends[0]);
  const FileDescriptor to(ends[1]);
  ASSERT_TRUE(write_fully(to.get(), "data of another program"));
  MediaSource source(from.get(), 100);
  EXPECT_FALSE(source.read_head());
  std::array<char, 4> bytes{};
  EXPECT_EQ(read_some(from.get(), bytes.data(), bytes.size()), 4) << "nothing was taken away";
}

}  // namespace
