#include "import/import_failures.hpp"

#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <new>

#include "platform/system/activity.hpp"
#include "platform/system/file.hpp"
#include "platform/system/messages.hpp"
#include "platform/system/run_limits.hpp"
#include "schedule/watchdog.hpp"
#include "station/replaced_file.hpp"

namespace {

constexpr const char* program_begin = "nv8x_schedule_import: ";

/// Allocates no memory. May be called in a signal handler.
void print_failure(const char* message) {
  for (const char* text : {program_begin, message, "\n"}) {
    write_fully(STDERR_FILENO, text);
  }
}

[[noreturn]] void end_without_memory() {
  remove_draft();
  print_failure("Out of memory");
  std::_Exit(could_not_import);
}

[[noreturn]] void end_at_limit(int /*signal*/) {
  // The run must end even if nobody reads the message.
  constexpr unsigned time_to_write = 5;  // seconds
  std::signal(SIGALRM, SIG_DFL);
  alarm(time_to_write);
  static_assert(watchdog_seconds == 60, "the message says so");
  remove_draft();
  write_fully(STDERR_FILENO, program_begin);
  write_fully(STDERR_FILENO, "Time limit of 60 s reached");
  if (const Activity* activity = current_activity()) {
    for (const char* text : {" while ", activity->doing(), " ", activity->file()}) {
      write_fully(STDERR_FILENO, text);
    }
  }
  write_fully(STDERR_FILENO, "\n");
  std::_Exit(could_not_import);
}

}  // namespace

void report_import_failures() {
  set_failure_reporter(print_failure, could_not_import);
  std::set_new_handler(end_without_memory);
  set_signal_action(SIGALRM, end_at_limit);
}
