#include "platform/system/messages.hpp"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>

namespace {

std::string* record = nullptr;
bool is_printing = true;

void print_error(const char* message) {
  std::fprintf(stderr, "Error: %s\n", message);
}

FailureReporter report = print_error;
WarningReporter report_warning = nullptr;

void print_and_record(const std::string& text) {
  if (is_printing) {
    std::fwrite(text.data(), 1, text.size(), stderr);
  }
  if (record != nullptr) {
    *record += text;
  }
}
int status_of_failure = EXIT_FAILURE;

/// The C++ library calls this when memory runs out. It must not allocate memory, and it calls no
/// destructors, because a container may be half changed.
[[noreturn]] void end_without_memory() {
  report("Out of memory");
  std::_Exit(status_of_failure);
}

}  // namespace

std::string format_text(const char* format, std::va_list arguments) {
  std::va_list again;
  va_copy(again, arguments);
  const int length = std::vsnprintf(nullptr, 0, format, again);
  va_end(again);
  std::string text(length > 0 ? static_cast<size_t>(length) : 0, '\0');
  std::vsnprintf(text.data(), text.size() + 1, format, arguments);
  return text;
}

void print_diagnostic(const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  const std::string text = format_text(format, arguments);
  va_end(arguments);
  print_and_record(text);
}

void print_warning(Warning kind, const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  const std::string text = format_text(format, arguments);
  va_end(arguments);
  if (report_warning == nullptr) {
    print_and_record(text);
  } else {
    report_warning(kind, text);
  }
}

void set_warning_reporter(WarningReporter reporter) {
  report_warning = reporter;
}

DiagnosticsRecord::DiagnosticsRecord(Printing printing)
    : record_around_(record), was_printing_(is_printing) {
  record = printing == Printing::on ? &text_ : nullptr;
  is_printing = is_printing && printing == Printing::on;
}

DiagnosticsRecord::~DiagnosticsRecord() {
  record = record_around_;
  is_printing = was_printing_;
}

void set_failure_reporter(FailureReporter reporter, int status) {
  report = reporter;
  status_of_failure = status;
  std::set_new_handler(end_without_memory);
}

int failure_status() {
  return status_of_failure;
}

void fail_run(const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  const std::string message = format_text(format, arguments);
  va_end(arguments);
  report(message.c_str());
  std::exit(status_of_failure);
}

void fail_run_for_shortage(const char* format, const char* name) {
  const int error = errno;
  if (error == EMFILE || error == ENFILE || error == ENOMEM || error == ENOBUFS) {
    fail_run(format, name, std::strerror(error));
  }
}
