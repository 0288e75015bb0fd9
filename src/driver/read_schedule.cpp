#include "driver/run_steps.hpp"

#include "driver/report_error.hpp"
#include "schedule/run_options.hpp"
#include "schedule/schedule_reader.hpp"

void read_schedule(Schedule& schedule) {
  const char* path = run_options.schedule_path.c_str();
  if (!read_schedule_file(schedule, path, Links::refused)) {
    report_errorf("Unable to open schedule file %s", path);
  }
}
