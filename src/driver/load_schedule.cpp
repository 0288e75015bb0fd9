#include "driver/load_schedule.hpp"

#include <cstring>

#include "driver/report_error.hpp"
#include "schedule/repair.hpp"
#include "schedule/run_options.hpp"
#include "schedule/schedule_reader.hpp"
#include "schedule/unit_times.hpp"

void load_schedule(Schedule& schedule) {
  const char* path = run_options.schedule_path.c_str();
  int read_error = 0;
  if (!read_schedule_file(schedule, path, &read_error)) {
    report_errorf("Unable to open schedule file %s", path);
  }
  if (read_error != 0) {
    report_errorf("Unable to read schedule file %s: %s", path, std::strerror(read_error));
  }
  // Nothing after this can reverse an item again: clipping ends an item at a later one's start, and
  // what fills a gap is as long as the gap.
  remove_reversed_items(schedule);
  if (!fix_schedule_file(schedule)) {
    report_error("Somehow, fixing up the schedule file failed");
  }
  if (!patch_schedule_default_items(schedule)) {
    report_error("Somehow, patching default items into the schedule failed");
  }
  if (!compute_unit_times(schedule, static_cast<time_t>(run_options.report_time))) {
    report_error("Somehow, unable to compute schedule unit times");
  }
}
