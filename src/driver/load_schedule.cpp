#include "driver/run_steps.hpp"

#include "driver/report_error.hpp"
#include "schedule/repair.hpp"
#include "schedule/run_options.hpp"
#include "schedule/schedule_reader.hpp"
#include "schedule/unit_times.hpp"

void load_schedule(Schedule& schedule) {
  const char* path = run_options.schedule_path.c_str();
  if (!read_schedule_file(schedule, path, Links::refused)) {
    report_errorf("Unable to open schedule file %s", path);
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
