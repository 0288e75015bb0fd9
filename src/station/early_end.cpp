#include "station/early_end.hpp"

#include <csignal>

#include "platform/system/early_end.hpp"
#include "platform/system/run_limits.hpp"
#include "station/replaced_file.hpp"

namespace {

/// The signal already has its default action again.
void end_by_signal(int signal) {
  remove_draft();
  std::raise(signal);
}

bool is_ignored(int signal) {
  struct sigaction action = {};
  return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

}  // namespace

void prepare_for_early_end(const char* program, int status) {
  set_early_end({program, status, remove_draft});
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
