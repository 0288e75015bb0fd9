#include "fuzz/one_process.hpp"

#include "driver/report_error.hpp"
#include "platform/system/clock.hpp"
#include "platform/system/invariant.hpp"
#include "platform/system/output.hpp"
#include "schedule/watchdog.hpp"
// The library reads a file once in a run; where runs follow each other its table has to be reached.
#include "platform/media/metadata_library.cpp"  // NOLINT(bugprone-suspicious-include)

std::string printed;

void prepare_standard_streams() {
}

void hold_output_back() {
}

void print_output(std::string_view text) {
  printed += text;
}

void write_output(std::string& text) {
  print_output(text);
  text.clear();
}

void write_output_when_large(std::string& text) {
  write_output(text);
}

void finish_output() {
}

bool is_output_begun() {
  return false;
}

void report_error(const char* message) {
  throw RunEnded{message};
}

void report_errorf(const char* format, ...) {
  throw RunEnded{format};
}

void fail_invariant(const char* text, const char* /*function*/, int /*line*/) {
  throw AssertionFailed{text};
}

void report_failures() {
}

void report_limits() {
}

void arm_watchdog() {
}

void cancel_watchdog() {
}

time_t current_time() {
  return 1772733600;  // 2026-03-05 18:00:00 UTC
}

void forget_media_files() {
  cache().files.clear();
  cache().directories.clear();
}
