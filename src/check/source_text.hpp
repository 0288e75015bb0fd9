#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "check/finding.hpp"

/// The bytes of a file, line by line.
class SourceText {
 public:
  explicit SourceText(std::string content);

  std::string_view content() const { return content_; }

  /// The line without its line feed; empty beyond the last line.
  std::string_view line(int64_t number) const;
  int64_t line_count() const { return static_cast<int64_t>(line_starts_.size()); }

 private:
  std::string content_;
  std::vector<size_t> line_starts_;
};

/// Checks the bytes of the text: byte order mark, encoding, line ends, overlong lines.
void check_bytes(const SourceText& source, std::vector<Finding>& findings);

/// Whether the reader can use nothing of the text, so that further checks make no sense.
bool is_hopeless(const SourceText& source);
