#pragma once

#include <string>

// What the reader and the passes have to say of a schedule, on standard error.

/// Prints it, as std::fprintf does.
[[gnu::format(printf, 1, 2)]] void print_diagnostic(const char* format, ...);

/// Keeps a copy of what is printed while it lives; one at a time. What was said of a schedule that
/// is used again can so be said again.
class DiagnosticsRecord {
 public:
  DiagnosticsRecord();
  DiagnosticsRecord(const DiagnosticsRecord&) = delete;
  DiagnosticsRecord& operator=(const DiagnosticsRecord&) = delete;
  ~DiagnosticsRecord();

  const std::string& text() const { return text_; }

 private:
  std::string text_;
};
