#include "station/early_end.hpp"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <new>

#include "platform/system/messages.hpp"
#include "platform/system/run_limits.hpp"
#include "station/replaced_file.hpp"

namespace {

const char* program_name = "";

/// The signal already has its default action again.
void end_by_signal(int signal) {
  remove_draft();
  std::raise(signal);
}

/// This must not allocate memory, and it calls no destructors, because a container may be half
/// changed.
[[noreturn]] void end_run_without_memory() {
  remove_draft();
  std::fprintf(stderr, "%s: Out of memory\n", program_name);
  std::_Exit(failure_status());
}

void report_failure(const char* message) {
  remove_draft();
  std::fprintf(stderr, "%s: %s\n", program_name, message);
}

bool is_ignored(int signal) {
  struct sigaction action = {};
  return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

}  // namespace

void prepare_for_early_end(const char* program, int status) {
  program_name = program;
  set_failure_reporter(report_failure, status);
  std::set_new_handler(end_run_without_memory);
  limit_memory();
  for (const int signal : {SIGCHLD, SIGALRM}) {
    set_signal_action(signal, SIG_DFL);
  }
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    if (!is_ignored(signal)) {
      set_signal_action(signal, end_by_signal);
    }
  }
}
