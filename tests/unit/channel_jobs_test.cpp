#include "grab/channel_jobs.hpp"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <string_view>

namespace {

FileDescriptor file_with(const ProgrammesHead& head, std::string_view text) {
  FileDescriptor file(memfd_create("channel", MFD_CLOEXEC));
  EXPECT_EQ(write(file.get(), &head, sizeof(head)), static_cast<ssize_t>(sizeof(head)));
  EXPECT_TRUE(write_fully(file.get(), text));
  return file;
}

std::string content_of(int fd) {
  EXPECT_EQ(lseek(fd, 0, SEEK_SET), 0);
  return read_content(fd).value_or("unreadable");
}

TEST(CopyProgrammes, CopiesWhatTheHeadSays) {
  const FileDescriptor from = file_with({2, 10}, "one\nanothe");
  const FileDescriptor to(memfd_create("guide", MFD_CLOEXEC));
  EXPECT_EQ(copy_programmes(from.get(), to.get()), 2U);
  EXPECT_EQ(content_of(to.get()), "one\nanothe");
}

TEST(CopyProgrammes, CopiesNoProgrammes) {
  const FileDescriptor from = file_with({0, 0}, "");
  const FileDescriptor to(memfd_create("guide", MFD_CLOEXEC));
  EXPECT_EQ(copy_programmes(from.get(), to.get()), 0U);
  EXPECT_EQ(content_of(to.get()), "");
}

TEST(CopyProgrammes, RefusesAFileThatIsCutOff) {
  const FileDescriptor to(memfd_create("guide", MFD_CLOEXEC));
  for (const uint64_t bytes : {4U, 100000U}) {
    const FileDescriptor from = file_with({1, bytes}, "one");
    errno = 0;
    EXPECT_EQ(copy_programmes(from.get(), to.get()), std::nullopt);
    EXPECT_EQ(errno, EIO);
  }
  const FileDescriptor empty(memfd_create("channel", MFD_CLOEXEC));
  EXPECT_EQ(copy_programmes(empty.get(), to.get()), std::nullopt);
}

TEST(CopyProgrammes, RefusesAFileWhoseHeadWasNotWritten) {
  const FileDescriptor from = file_with({0, 0}, "one");
  const FileDescriptor to(memfd_create("guide", MFD_CLOEXEC));
  EXPECT_EQ(copy_programmes(from.get(), to.get()), std::nullopt);
  EXPECT_EQ(content_of(to.get()), "");
}

}  // namespace
