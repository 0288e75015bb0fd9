#include "import/import_failures.hpp"

#include <unistd.h>

#include <csignal>
#include <cstdlib>

#include "platform/system/activity.hpp"
#include "platform/system/file.hpp"
#include "platform/system/run_limits.hpp"
#include "schedule/watchdog.hpp"
#include "station/early_end.hpp"
#include "station/replaced_file.hpp"

namespace {

[[noreturn]] void end_at_limit(int /*signal*/) {
  // The run must end even if nobody reads the message.
  constexpr unsigned time_to_write = 5;  // seconds
  std::signal(SIGALRM, SIG_DFL);
  alarm(time_to_write);
  static_assert(watchdog_seconds == 60, "the message says so");
  remove_draft();
  write_fully(STDERR_FILENO, "nv8x_schedule_import: ");
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
  prepare_for_early_end("nv8x_schedule_import", could_not_import);
  set_signal_action(SIGALRM, end_at_limit);
}
