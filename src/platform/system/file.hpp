#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// Owns an open file descriptor and closes it.
class FileDescriptor {
 public:
  explicit FileDescriptor(int fd = -1) : fd_(fd) {}
  FileDescriptor(FileDescriptor&& other) noexcept : fd_(other.release()) {}
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

/// What is at a path. A link as the last part of the path is not followed; links in folders are.
enum class FileState { regular, link, other, missing };

/// Sets errno when the path cannot be examined. Every program reads a channel's schedule only if
/// this is `regular`. Files that its items name may be links.
FileState look_at(const std::string& path);

/// How to treat a path that is itself a link.
enum class Links { followed, refused };

/// Opens a regular file for reading. The path is relative to a directory handle (or AT_FDCWD).
/// Other kinds of files are not opened, because opening one may wait or start a device. On failure
/// the result is not open and errno is set.
FileDescriptor open_regular_file(int directory, const char* path, Links links = Links::followed);

/// The same for a file that the run can do without. If only a shortage of the machine prevents
/// opening the file, the run fails (messages.hpp).
FileDescriptor open_optional_file(int directory, const char* path);

/// A file and the number of bytes that it had when it was looked at.
struct SizedFile {
  FileDescriptor file;
  long size = 0;
};

/// The same for a file that is read by offsets only. It is looked at once, before it is opened: if
/// something else has taken its place since, reading by offsets fails, or takes nothing away.
SizedFile open_optional_sized_file(int directory, const char* path);

// All functions below continue after an interruption. On failure they set errno.

/// Reads once. Returns the number of bytes, 0 at the end of the file, or nothing on an error.
std::optional<size_t> read_some(int fd, char* bytes, size_t size);

/// Reads until there are `size` bytes or the file ends. Returns the number of bytes; it is less
/// than `size` only at the end of the file. Nothing on an error, even if some bytes were read
/// before.
std::optional<size_t> read_fully(int fd, char* bytes, size_t size);

/// The same, starting at `offset` bytes from the beginning of the file.
std::optional<size_t> read_fully_at(int fd, char* bytes, size_t size, long offset);

/// Reads the rest of a file. Nothing on an error.
std::optional<std::string> read_content(int fd);

/// False when some of the bytes could not be written.
bool write_fully(int fd, std::string_view bytes);
