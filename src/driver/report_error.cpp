#include "driver/report_error.hpp"

#include <unistd.h>

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "platform/syntax/text.hpp"
#include "platform/system/file.hpp"
#include "platform/system/messages.hpp"
#include "platform/system/output.hpp"
#include "schedule/run_options.hpp"

namespace {

/// Does not use the buffer of the document. A failed write cannot be reported anywhere.
void print_error(const char* message) {
  if (!run_options.cgi || is_output_begun()) {
    std::fprintf(stderr, "Error: %s\n", message);
    return;
  }
  for (const char* text : {error_response_header, message, "\n"}) {
    if (!write_fully(STDOUT_FILENO, text)) {
      return;
    }
  }
}

}  // namespace

void report_error(const char* message) {
  print_error(message);
  std::exit(EXIT_FAILURE);
}

void report_errorf(const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  const std::string message = format_text(format, arguments);
  va_end(arguments);
  report_error(message.c_str());
}

void report_failures() {
  set_failure_reporter(print_error);
}
