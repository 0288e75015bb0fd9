#include "platform/run_failure.hpp"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

void print_error(const char* message) {
  std::fprintf(stderr, "Error: %s\n", message);
}

FailureReporter report = print_error;

}  // namespace

void set_failure_reporter(FailureReporter reporter) {
  report = reporter;
}

void fail_run(const std::string& message) {
  report(message.c_str());
  std::exit(EXIT_FAILURE);
}

void fail_run_if_short(const std::string& what) {
  const int error = errno;
  if (error == EMFILE || error == ENFILE || error == ENOMEM || error == ENOBUFS) {
    fail_run("Unable to " + what + ": " + std::strerror(error));
  }
}
