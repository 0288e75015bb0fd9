#include "platform/file.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

FileDescriptor& FileDescriptor::operator=(FileDescriptor&& other) noexcept {
  reset(other.release());
  return *this;
}

int FileDescriptor::release() {
  return std::exchange(fd_, -1);
}

void FileDescriptor::reset(int fd) {
  if (fd_ >= 0 && fd_ != fd) {
    ::close(fd_);
  }
  fd_ = fd;
}

FileDescriptor open_regular_file(int directory, const char* path) {
  FileDescriptor file(::openat(directory, path, O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  struct stat status {};
  if (file.is_open() && (fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode))) {
    file.reset();
  }
  return file;
}

size_t read_some(int fd, char* bytes, size_t size) {
  ssize_t count = 0;
  do {
    count = ::read(fd, bytes, size);
  } while (count < 0 && errno == EINTR);
  return count > 0 ? static_cast<size_t>(count) : 0;
}

size_t read_fully(int fd, char* bytes, size_t size) {
  size_t total = 0;
  while (total < size) {
    const size_t count = read_some(fd, bytes + total, size - total);
    if (count == 0) {
      break;
    }
    total += count;
  }
  return total;
}
