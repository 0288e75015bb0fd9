#include "platform/output.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

constexpr size_t large_text = 64 * 1024;

[[noreturn]] void fail_output(int error) {
  std::fprintf(stderr, "Unable to write standard output: %s\n", std::strerror(error));
  // What is still buffered could not be written either.
  std::_Exit(EXIT_FAILURE);
}

}  // namespace

void prepare_standard_streams() {
  for (const int fd : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    // Read-only on purpose: what is written to a closed stream must fail.
    if (fcntl(fd, F_GETFD) == -1 && open("/dev/null", O_RDONLY) == -1) {
      std::_Exit(EXIT_FAILURE);
    }
  }
  std::signal(SIGPIPE, SIG_IGN);
}

void write_output(std::string& text) {
  if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size()) {
    fail_output(errno);
  }
  text.clear();
}

void write_output_when_large(std::string& text) {
  if (text.size() >= large_text) {
    write_output(text);
  }
}

void finish_output() {
  if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
    fail_output(errno);
  }
}
