#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "driver/options.hpp"
#include "driver/report_error.hpp"
#include "driver/run_steps.hpp"
#include "metadata/place_schedule.hpp"
#include "platform/system/activity.hpp"
#include "platform/system/output.hpp"
#include "platform/system/run_limits.hpp"
#include "platform/time/calendar.hpp"
#include "schedule/complete_schedule.hpp"
#include "schedule/run_options.hpp"

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
  read_schedule(schedule);
  complete_schedule(schedule);  // arms the watchdog
  place_schedule(schedule, static_cast<time_t>(run_options.report_time),
                 run_options.schedule_path);  // cancels it
  std::fprintf(stderr, "Loaded: %s schedule %zu items\n", schedule.type.c_str(),
               schedule.schedule.size());
  print_document(schedule, report_window(schedule));
  // exit() does not destroy the schedule item by item. The end of the process frees it faster.
  std::exit(EXIT_SUCCESS);
}
