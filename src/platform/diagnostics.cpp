#include "platform/diagnostics.hpp"

#include <cstdarg>
#include <cstdio>

#include "platform/text.hpp"

namespace {

std::string* record = nullptr;

}  // namespace

void print_diagnostic(const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  const std::string text = format_text(format, arguments);
  va_end(arguments);
  std::fwrite(text.data(), 1, text.size(), stderr);
  if (record != nullptr) {
    *record += text;
  }
}

DiagnosticsRecord::DiagnosticsRecord() {
  record = &text_;
}

DiagnosticsRecord::~DiagnosticsRecord() {
  record = nullptr;
}
