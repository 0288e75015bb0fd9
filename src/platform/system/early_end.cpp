#include "platform/system/early_end.hpp"

#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>

#include "platform/system/activity.hpp"
#include "platform/system/file.hpp"
#include "platform/system/messages.hpp"
#include "platform/system/run_limits.hpp"

namespace {

EarlyEnd early_end = {"", EXIT_FAILURE};
std::array<char, 64> limit_message;

void take_first_step() {
  if (early_end.first_step != nullptr) {
    early_end.first_step();
  }
}

/// Prints the line at once, as other processes may print too. Allocates no memory.
void report_early_end(const char* message) {
  take_first_step();
  std::fprintf(stderr, "%s: %s\n", early_end.program, message);
}

[[noreturn]] void end_at_alarm(int /*signal*/) {
  // The run must end even if nobody reads the message.
  constexpr unsigned time_to_write = 5;  // seconds
  std::signal(SIGALRM, SIG_DFL);
  alarm(time_to_write);
  take_first_step();
  write_fully(STDERR_FILENO, early_end.program);
  write_fully(STDERR_FILENO, ": ");
  write_fully(STDERR_FILENO, limit_message.data());
  if (const Activity* activity = current_activity()) {
    for (const char* text : {" while ", activity->doing(), " ", activity->file()}) {
      write_fully(STDERR_FILENO, text);
    }
  }
  write_fully(STDERR_FILENO, "\n");
  std::_Exit(early_end.status);
}

}  // namespace

void set_early_end(const EarlyEnd& end) {
  early_end = end;
  set_failure_reporter(report_early_end, end.status);
}

void end_early_at_alarm(unsigned limit) {
  std::snprintf(limit_message.data(), limit_message.size(), "Time limit of %u s reached", limit);
  set_signal_action(SIGALRM, end_at_alarm);
}
