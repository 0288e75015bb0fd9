#include "checks/schedule_source.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "platform/system/file.hpp"

namespace {

std::optional<ScheduleSource> read_open_file(int fd, const std::string& path) {
  struct stat status = {};
  std::optional<std::string> content = read_content(fd);
  if (!content || fstat(fd, &status) != 0) {
    return std::nullopt;
  }
  return ScheduleSource{*std::move(content), {status.st_dev, status.st_ino}, path};
}

/// errno is set on failure.
std::optional<ScheduleSource> read_file(const std::string& path) {
  const FileDescriptor file = open_regular_file(AT_FDCWD, path.c_str(), Links::refused);
  return file.is_open() ? read_open_file(file.get(), path) : std::nullopt;
}

}  // namespace

std::optional<ScheduleSource> read_schedule_source(const std::string& file, Finding& failure) {
  const bool is_standard_input = file == "-" || file == "/dev/stdin";
  if (!is_standard_input && look_at(file) == FileState::link) {
    failure = {FindingKind::link,
               {},
               "is a link, and no program reads a schedule through a link; name the file "
               "that it leads to",
               {}};
    return std::nullopt;
  }
  std::optional<ScheduleSource> source =
      is_standard_input ? read_open_file(STDIN_FILENO, {}) : read_file(file);
  if (!source) {
    failure = {FindingKind::unreadable,
               {},
               errno == EINVAL ? std::string("is not a regular file")
                               : std::string("cannot be read: ") + std::strerror(errno),
               {}};
  }
  return source;
}
