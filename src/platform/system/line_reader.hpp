#pragma once

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
  /// read error. The piece with the error is lost.
  bool read(std::string_view& piece);

  /// The line number of the last piece, from 1.
  int64_t line() const { return line_; }

  /// The errno of a failed read; 0 if all succeeded. Call this after `read` returned false.
  int error() const { return error_; }

 private:
  void refill();

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
