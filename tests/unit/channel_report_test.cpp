#include "station/channel_report.hpp"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <string>

#include "platform/system/file.hpp"

namespace {

FileDescriptor memory_file() {
  return FileDescriptor(memfd_create("channel", MFD_CLOEXEC));
}

std::string content_of(int fd) {
  EXPECT_EQ(lseek(fd, 0, SEEK_SET), 0);
  return read_content(fd).value_or("unreadable");
}

/// A file with the parts "one" and "another", and what the guards found.
FileDescriptor file_with_two_parts() {
  FileDescriptor file = memory_file();
  begin_channel_file(file.get());
  ChannelReport report;
  report.refusals = {"first: \n 3:x", ""};
  report.items = 12;
  for (const std::string text : {"one", "another"}) {
    ChannelPart part = begin_channel_part(file.get(), "part " + text);
    EXPECT_TRUE(write_fully(file.get(), text));
    end_channel_part(file.get(), part);
    part.count = 7;
    part.microseconds = 1500000;
    report.parts.push_back(part);
  }
  report.parts.push_back({"json", "not well-formed", 0, 0, 0, 0});
  write_channel_report(file.get(), report);
  return file;
}

TEST(ChannelReport, IsReadAsItWasWritten) {
  const FileDescriptor file = file_with_two_parts();
  const auto report = read_channel_report(file.get());
  ASSERT_TRUE(report);
  EXPECT_EQ(report->refusals, (std::vector<std::string>{"first: \n 3:x", ""}));
  EXPECT_EQ(report->items, 12U);
  ASSERT_EQ(report->parts.size(), 3U);
  EXPECT_EQ(report->parts[1].name, "part another");
  EXPECT_EQ(report->parts[1].fault, "");
  EXPECT_EQ(report->parts[1].bytes, 7U);
  EXPECT_EQ(report->parts[1].count, 7U);
  EXPECT_EQ(report->parts[1].microseconds, 1500000U);
  EXPECT_EQ(report->parts[2].fault, "not well-formed");
}

TEST(ChannelReport, WithoutCountHasNone) {
  const FileDescriptor file = memory_file();
  begin_channel_file(file.get());
  write_channel_report(file.get(), {});
  const auto report = read_channel_report(file.get());
  ASSERT_TRUE(report);
  EXPECT_EQ(report->items, std::nullopt);
  EXPECT_TRUE(report->refusals.empty());
  EXPECT_TRUE(report->parts.empty());
}

TEST(ChannelReport, CopiesOnePart) {
  const FileDescriptor file = file_with_two_parts();
  const FileDescriptor to = memory_file();
  EXPECT_TRUE(copy_part(file.get(), read_channel_report(file.get())->parts[1], to.get()));
  EXPECT_EQ(content_of(to.get()), "another");
}

TEST(ChannelReport, ThatIsCutAnywhereIsRefused) {
  const std::string whole = content_of(file_with_two_parts().get());
  for (size_t length = 0; length < whole.size(); ++length) {
    const FileDescriptor cut = memory_file();
    EXPECT_TRUE(write_fully(cut.get(), std::string_view(whole).substr(0, length)));
    errno = 0;
    EXPECT_EQ(read_channel_report(cut.get()), std::nullopt) << length;
    EXPECT_EQ(errno, EIO) << length;
  }
}

TEST(ChannelReport, WhoseFrontWasNotWrittenIsRefused) {
  const FileDescriptor file = memory_file();
  begin_channel_file(file.get());
  EXPECT_TRUE(write_fully(file.get(), "one"));
  EXPECT_EQ(read_channel_report(file.get()), std::nullopt);
}

TEST(ChannelReport, WhosePartLiesBehindTheFileIsNotCopied) {
  const FileDescriptor file = file_with_two_parts();
  const FileDescriptor to = memory_file();
  ChannelPart part;
  part.offset = 100000;
  part.bytes = 1;
  errno = 0;
  EXPECT_FALSE(copy_part(file.get(), part, to.get()));
  EXPECT_EQ(errno, EIO);
}

}  // namespace
