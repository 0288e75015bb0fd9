#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

#include "platform/system/file.hpp"

/// Reads a file or a text in memory line by line, like C's fgets with a buffer of longest_piece + 1
/// bytes.
class LineReader {
 public:
  LineReader(FileDescriptor file, size_t longest_piece);

  /// The text must outlive the reader. The pieces are parts of it.
  LineReader(std::string_view text, size_t longest_piece);

  /// Sets `piece` to the next line with its line feed, or to the next `longest_piece` bytes of a
  /// longer line. As in any C string, a NUL byte ends the piece; the rest of the line or piece is
  /// lost. A view into a file is valid until the next call. False at the end of the file or on a
  /// read error. The piece with the error is lost. Inline, because schedules have many short lines.
  bool read(std::string_view& piece) {
    std::string_view ahead = bytes_ahead();
    size_t line_feed = ahead.find('\n');
    while (line_feed == std::string_view::npos && ahead.size() < longest_piece_ && refill()) {
      ahead = bytes_ahead();
      line_feed = ahead.find('\n');
    }
    const bool is_line = line_feed != std::string_view::npos;
    piece = is_line ? ahead.substr(0, line_feed + 1) : ahead;
    if (piece.empty()) {
      return false;
    }
    begin_ += piece.size();
    line_ = next_line_;
    next_line_ += is_line ? 1 : 0;
    if (has_nul_) {
      piece = piece.substr(0, piece.find('\0'));
    }
    return true;
  }

  /// The line number of the last piece, from 1.
  int64_t line() const { return line_; }

  /// The errno of a failed read; 0 if all succeeded. Call this after `read` returned false.
  int error() const { return error_; }

 private:
  /// Of the bytes that were not given yet, as many as a piece may have.
  std::string_view bytes_ahead() const {
    return {bytes_ + begin_, std::min(end_ - begin_, longest_piece_)};
  }

  /// Reads more bytes. False when there are none, because the file has ended. After a read error no
  /// bytes are left.
  bool refill();

  FileDescriptor file_;
  size_t longest_piece_;
  size_t buffer_size_ = 0;
  std::unique_ptr<char[]> buffer_;  ///< null for a text in memory
  const char* bytes_;
  size_t begin_ = 0;
  size_t end_ = 0;
  bool at_end_ = false;
  bool has_nul_ = false;  ///< among the bytes; few files have one, so lines need not be searched
  int64_t line_ = 0;
  int64_t next_line_ = 1;
  int error_ = 0;
};
