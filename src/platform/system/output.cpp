#include "platform/system/output.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "platform/system/file.hpp"
#include "platform/system/messages.hpp"

namespace {

constexpr size_t large_text = 64 * 1024;
constexpr size_t most_held_back = 64 * 1024 * 1024;

std::array<char, large_text> buffer;
size_t buffered = 0;
std::string held_back;
bool holds_back = false;
int output_file = STDOUT_FILENO;
volatile std::sig_atomic_t is_begun = 0;

[[noreturn]] void fail_output(int error) {
  if (output_file != STDOUT_FILENO) {
    fail_run("Unable to write a document: %s", std::strerror(error));
  }
  std::fprintf(stderr, "Unable to write standard output: %s\n", std::strerror(error));
  // The rest of the buffer could not be written either.
  std::_Exit(failure_status());
}

void write_out(std::string_view text) {
  if (text.empty()) {
    return;
  }
  is_begun = 1;
  if (!write_fully(output_file, text)) {
    fail_output(errno);
  }
}

void write_out_buffer() {
  write_out({buffer.data(), buffered});
  buffered = 0;
}

}  // namespace

void prepare_standard_streams() {
  for (const int fd : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    // The mode is wrong on purpose: using a closed stream must fail.
    const int flags = fd == STDIN_FILENO ? O_WRONLY : O_RDONLY;
    if (fcntl(fd, F_GETFD) == -1 && open("/dev/null", flags) == -1) {
      std::fprintf(stderr, "Unable to open /dev/null: %s\n", std::strerror(errno));
      std::_Exit(failure_status());
    }
  }
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
}

void send_output_to(int file) {
  output_file = file;
}

void hold_output_back() {
  holds_back = true;
}

void print_output(std::string_view text) {
  if (holds_back) {
    if (text.size() <= most_held_back - held_back.size()) {
      held_back += text;
      return;
    }
    holds_back = false;
    write_out(held_back);
    std::string().swap(held_back);
  }
  if (text.size() > buffer.size() - buffered) {
    write_out_buffer();
  }
  if (text.size() > buffer.size()) {
    write_out(text);
    return;
  }
  std::ranges::copy(text, buffer.data() + buffered);
  buffered += text.size();
}

void write_output(std::string& text) {
  print_output(text);
  text.clear();
}

void write_output_when_large(std::string& text) {
  if (text.size() >= large_text) {
    write_output(text);
  }
}

void finish_output() {
  write_out(held_back);
  write_out_buffer();
}

bool is_output_begun() {
  return is_begun != 0;
}
