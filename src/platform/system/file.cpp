#include "platform/system/file.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "platform/system/messages.hpp"

namespace {

template <typename Call>
ssize_t uninterrupted(Call call) {
  ssize_t count = 0;
  do {
    count = call();
  } while (count < 0 && errno == EINTR);
  return count;
}

/// Calls read(number of bytes so far) until there are `size` bytes or it returns no more.
template <typename Read>
std::optional<size_t> read_until_full(size_t size, Read read) {
  size_t total = 0;
  while (total < size) {
    const ssize_t count = uninterrupted([&] { return read(total); });
    if (count < 0) {
      return std::nullopt;
    }
    if (count == 0) {
      break;
    }
    total += static_cast<size_t>(count);
  }
  return total;
}

/// Opens what is a regular file at this moment. `status` gets what was seen of it before.
FileDescriptor open_if_regular(int directory, const char* path, Links links, struct stat& status) {
  const bool follows = links == Links::followed;
  if (fstatat(directory, path, &status, follows ? 0 : AT_SYMLINK_NOFOLLOW) != 0) {
    return FileDescriptor();
  }
  if (!S_ISREG(status.st_mode)) {
    errno = EINVAL;
    return FileDescriptor();
  }
  constexpr int flags = O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
  return FileDescriptor(::openat(directory, path, follows ? flags : flags | O_NOFOLLOW));
}

}  // namespace

int FileDescriptor::release() {
  return std::exchange(fd_, -1);
}

void FileDescriptor::reset(int fd) {
  if (fd_ >= 0 && fd_ != fd) {
    ::close(fd_);
  }
  fd_ = fd;
}

FileState look_at(const std::string& path) {
  struct stat status = {};
  if (lstat(path.c_str(), &status) != 0) {
    return FileState::missing;
  }
  if (S_ISREG(status.st_mode)) {
    return FileState::regular;
  }
  return S_ISLNK(status.st_mode) ? FileState::link : FileState::other;
}

FileDescriptor open_regular_file(int directory, const char* path, Links links) {
  struct stat status = {};
  FileDescriptor file = open_if_regular(directory, path, links, status);
  // The file may have been replaced since.
  if (file.is_open() && (fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode))) {
    file.reset();
    errno = EINVAL;
  }
  return file;
}

FileDescriptor open_optional_file(int directory, const char* path) {
  FileDescriptor file = open_regular_file(directory, path);
  if (!file.is_open()) {
    fail_run_for_shortage("Unable to open %s: %s", path);
  }
  return file;
}

SizedFile open_optional_sized_file(int directory, const char* path) {
  struct stat status = {};
  SizedFile opened{open_if_regular(directory, path, Links::followed, status), 0};
  if (!opened.file.is_open()) {
    fail_run_for_shortage("Unable to open %s: %s", path);
  }
  opened.size = status.st_size;
  return opened;
}

std::optional<size_t> read_some(int fd, char* bytes, size_t size) {
  const ssize_t count = uninterrupted([&] { return ::read(fd, bytes, size); });
  return count < 0 ? std::nullopt : std::optional(static_cast<size_t>(count));
}

std::optional<size_t> read_fully(int fd, char* bytes, size_t size) {
  return read_until_full(size, [&](size_t done) { return ::read(fd, bytes + done, size - done); });
}

std::optional<size_t> read_fully_at(int fd, char* bytes, size_t size, long offset) {
  return read_until_full(size, [&](size_t done) {
    return ::pread(fd, bytes + done, size - done, offset + static_cast<long>(done));
  });
}

std::optional<std::string> read_content(int fd) {
  std::string content;
  constexpr size_t step = 256UL * 1024;
  // Growing would copy a large file several times. A file may also say that it is larger than it
  // is.
  constexpr off_t most_reserved = off_t{1} << 30U;
  struct stat file = {};
  if (fstat(fd, &file) == 0 && S_ISREG(file.st_mode)) {
    content.reserve(static_cast<size_t>(std::min(file.st_size, most_reserved)) + step);
  }
  for (;;) {
    const size_t length = content.size();
    content.resize(length + step);
    const std::optional<size_t> count = read_fully(fd, content.data() + length, step);
    content.resize(length + count.value_or(0));
    if (!count) {
      return std::nullopt;
    }
    if (*count < step) {
      return content;
    }
  }
}

bool write_fully(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = uninterrupted([&] { return ::write(fd, bytes.data(), bytes.size()); });
    if (count < 0) {
      return false;
    }
    if (count == 0) {
      errno = EIO;  // otherwise this would loop for ever
      return false;
    }
    bytes.remove_prefix(static_cast<size_t>(count));
  }
  return true;
}
