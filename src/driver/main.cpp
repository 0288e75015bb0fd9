#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "driver/options.hpp"
#include "driver/report_error.hpp"
#include "driver/report_limits.hpp"
#include "driver/run_steps.hpp"
#include "metadata/merge_play_log.hpp"
#include "platform/system/activity.hpp"
#include "platform/system/output.hpp"
#include "platform/system/run_limits.hpp"
#include "platform/time/calendar.hpp"
#include "schedule/block_announce.hpp"
#include "schedule/run_options.hpp"
#include "schedule/subschedules.hpp"

int main(int argc, char** argv) {
  prepare_standard_streams();
  report_failures();
  limit_memory();
  if (!parse_options(argc, argv)) {
    return EXIT_FAILURE;
  }
  report_limits();
  if (!settle_local_zone()) {
    report_errorf("Unable to read the time zone: %s", std::strerror(errno));
  }
  if (!locate_schedule()) {
    return EXIT_FAILURE;
  }
  const Activity activity("working on", run_options.schedule_path.c_str());
  Schedule schedule;
  load_schedule(schedule);  // arms the watchdog
  merge_play_log(schedule, run_options.schedule_path);
  const ReportWindow window = report_window(schedule);
  block_announce_subst(schedule);
  patch_all_subschedules(schedule);  // cancels it
  std::fprintf(stderr, "Loaded: %s schedule %zu items\n", schedule.type.c_str(),
               schedule.schedule.size());
  print_document(schedule, window);
  // Leaving by exit() spares taking the schedule down item by item: the process's end frees it.
  std::exit(EXIT_SUCCESS);
}
