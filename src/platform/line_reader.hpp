#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

/// Owns an open file descriptor and closes it.
class FileDescriptor {
 public:
  explicit FileDescriptor(int fd = -1) : fd_(fd) {}
  FileDescriptor(FileDescriptor&& other) noexcept : fd_(other.release()) {}
  FileDescriptor& operator=(FileDescriptor&& other) noexcept;
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;
  ~FileDescriptor() { reset(); }

  int get() const { return fd_; }
  bool is_open() const { return fd_ >= 0; }
  int release();
  void reset(int fd = -1);

 private:
  int fd_;
};

/// Opens a path relative to a directory handle (or AT_FDCWD) for reading. Neither waits for a
/// FIFO's writer nor takes a terminal. Not open on failure, with errno set.
FileDescriptor open_for_reading(int directory, const char* path);

/// Reads up to `size` bytes, waiting for a whole read as long as the file has more. The number
/// read; fewer than `size` only at the end of the file or on a read error.
size_t read_fully(int fd, char* bytes, size_t size);

/// Reads a file line by line as C's fgets would into a buffer of longest_piece + 1 bytes.
class LineReader {
 public:
  LineReader(FileDescriptor file, size_t longest_piece);

  /// Sets `piece` to the next line with its line feed, or to the next `longest_piece` bytes of a
  /// longer line. As for any C string, a NUL byte ends the piece, and what follows it up to there
  /// is lost. The view stays valid until the next call. False at the end of the file or on a read
  /// error.
  bool read(std::string_view& piece);

 private:
  void refill();

  FileDescriptor file_;
  size_t longest_piece_;
  std::vector<char> buffer_;
  size_t begin_ = 0;
  size_t end_ = 0;
  bool at_end_ = false;
};
