#include "platform/run_failure.hpp"

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "platform/text.hpp"

namespace {

void print_error(const char* message) {
  std::fprintf(stderr, "Error: %s\n", message);
}

FailureReporter report = print_error;

}  // namespace

void set_failure_reporter(FailureReporter reporter) {
  report = reporter;
}

void fail_run(const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  const std::string message = format_text(format, arguments);
  va_end(arguments);
  report(message.c_str());
  std::exit(EXIT_FAILURE);
}

void fail_run_if_short(const char* format, const char* name) {
  const int error = errno;
  if (error == EMFILE || error == ENFILE || error == ENOMEM || error == ENOBUFS) {
    fail_run(format, name, std::strerror(error));
  }
}
