#include "platform/line_reader.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

namespace {

constexpr size_t buffer_size = 64 * 1024;

/// One read, again after an interruption. 0 at the end of the file and on an error.
size_t read_some(int fd, char* bytes, size_t size) {
  ssize_t count = 0;
  do {
    count = ::read(fd, bytes, size);
  } while (count < 0 && errno == EINTR);
  return count > 0 ? static_cast<size_t>(count) : 0;
}

}  // namespace

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

FileDescriptor open_for_reading(int directory, const char* path) {
  return FileDescriptor(::openat(directory, path, O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
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

LineReader::LineReader(FileDescriptor file, size_t longest_piece)
    : file_(std::move(file)),
      longest_piece_(longest_piece),
      buffer_(std::max(buffer_size, longest_piece)) {
}

bool LineReader::read(std::string_view& piece) {
  size_t searched = 0;
  for (;;) {
    const size_t available = std::min(end_ - begin_, longest_piece_);
    const char* start = buffer_.data() + begin_;
    const void* line_feed = std::memchr(start + searched, '\n', available - searched);
    size_t length = available;
    if (line_feed != nullptr) {
      length = static_cast<size_t>(static_cast<const char*>(line_feed) - start) + 1;
    } else if (available < longest_piece_ && !at_end_) {
      searched = available;
      refill();
      continue;
    }
    if (length == 0) {
      return false;
    }
    begin_ += length;
    piece = std::string_view(start, length);
    piece = piece.substr(0, piece.find('\0'));
    return true;
  }
}

void LineReader::refill() {
  std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
  end_ -= begin_;
  begin_ = 0;
  const size_t count = read_some(file_.get(), buffer_.data() + end_, buffer_.size() - end_);
  end_ += count;
  at_end_ = count == 0;
}
