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

/// What lies at a path. A link in the file's own place is not followed, one in a folder's is.
enum class FileState { regular, link, other, missing };

/// errno is set when nothing can be seen there. A channel's schedule is read only where this is
/// `regular`, in every program; what its items name may be links.
FileState look_at(const std::string& path);

/// What becomes of a path that is itself a link.
enum class Links { followed, refused };

/// Opens a regular file for reading, by its path relative to a directory handle (or AT_FDCWD). What
/// is no regular file is not opened, as opening alone may wait or set a device going. Not open on
/// failure, with errno set.
FileDescriptor open_regular_file(int directory, const char* path, Links links = Links::followed);

/// The same for a file that the run can do without. Where it is only the machine that lacks what it
/// takes to open the file, the run fails (messages.hpp).
FileDescriptor open_optional_file(int directory, const char* path);

// Each of these goes on after an interruption, and fails with errno set.

/// One read. The number of bytes, 0 at the end of the file; nothing on an error.
std::optional<size_t> read_some(int fd, char* bytes, size_t size);

/// Reads until `size` bytes are there or the file ends. The number read, fewer than `size` only at
/// the end of the file; nothing on an error, as what was read before it is no whole file.
std::optional<size_t> read_fully(int fd, char* bytes, size_t size);

/// The same from `offset` bytes behind the file's beginning.
std::optional<size_t> read_fully_at(int fd, char* bytes, size_t size, long offset);

/// All that is left of a file; nothing on an error.
std::optional<std::string> read_content(int fd);

/// False when not all of it could be written.
bool write_fully(int fd, std::string_view bytes);
