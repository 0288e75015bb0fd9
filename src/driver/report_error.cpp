#include "driver/report_error.hpp"

#include <unistd.h>

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <string>

#include "platform/file.hpp"
#include "platform/output.hpp"
#include "schedule/run_options.hpp"

namespace {

[[gnu::format(printf, 1, 0)]] std::string format_text(const char* format, std::va_list arguments) {
  std::va_list again;
  va_copy(again, arguments);
  const int length = std::vsnprintf(nullptr, 0, format, again);
  va_end(again);
  std::string text(length > 0 ? static_cast<size_t>(length) : 0, '\0');
  std::vsnprintf(text.data(), text.size() + 1, format, arguments);
  return text;
}

/// Past the buffer of the document. Where it cannot be written there is nobody left to tell.
void print_response(const char* message) {
  for (const char* text :
       {"Content-Type: text/plain\nX-Quorin disposition: Error\n\n", message, "\n"}) {
    if (!write_fully(STDOUT_FILENO, text)) {
      return;
    }
  }
}

/// What the library calls when there is no memory to be had. Nothing here asks for any, and
/// nothing is taken down: a container may be half changed.
[[noreturn]] void end_without_memory() {
  constexpr const char* message = "Out of memory";
  if (run_options.cgi && take_back_output()) {
    print_response(message);
  } else {
    std::fprintf(stderr, "Error: %s\n", message);
  }
  std::_Exit(EXIT_FAILURE);
}

}  // namespace

void report_lack_of_memory() {
  std::set_new_handler(end_without_memory);
}

void report_error(const char* message) {
  if (run_options.cgi) {
    print_response(message);
  } else {
    std::fprintf(stderr, "Error: %s\n", message);
  }
  std::exit(EXIT_FAILURE);
}

void report_errorf(const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  const std::string message = format_text(format, arguments);
  va_end(arguments);
  report_error(message.c_str());
}
