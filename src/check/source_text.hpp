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

  /// Without its line feed; empty beyond the last.
  std::string_view line(int64_t number) const;
  int64_t line_count() const { return static_cast<int64_t>(line_starts_.size()); }

 private:
  std::string content_;
  std::vector<size_t> line_starts_;
};

/// What is wrong with a text as bytes: marks, encodings, line ends, lines that are too long.
void check_bytes(const SourceText& source, std::vector<Finding>& findings);

/// Whether the reader can make nothing of the text, so that no more need be said.
bool is_hopeless(const SourceText& source);
