#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// An open media file of which the first 4 KiB, and the page that was read last, are kept. They
/// hold most of what is asked for, so a file takes few reads. The caller owns the descriptor.
class MediaSource {
 public:
  static constexpr size_t page_size = 4 * 1024;

  /// `length` is the number of bytes that the file has. Nothing is read behind it.
  MediaSource(int fd, long length) : fd_(fd), length_(length) {}

  /// Reads the head. False when that fails. Call it before anything else.
  bool read_head();

  int fd() const { return fd_; }
  long length() const { return length_; }

  /// The first 4 KiB, or the whole file if it is shorter.
  const std::string& head() const { return head_; }

  /// 4 KiB from `offset` on, fewer at the end of the file. Valid until the next call. Nothing when
  /// the read fails.
  std::optional<std::string_view> page_at(long offset);

  /// Reads until there are `size` bytes or the file ends. Returns the number of bytes, or nothing
  /// when a read fails.
  std::optional<size_t> read_at(char* bytes, size_t size, long offset) const;

 private:
  int fd_;
  long length_;
  std::string head_;
  std::string page_;
  long page_start_ = 0;
};
