// Reads a schedule file over and over: read_loop SCHEDULE TIMES

#include <cstdio>
#include <cstdlib>

#include "schedule/schedule_reader.hpp"

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("usage: read_loop SCHEDULE TIMES\n", stderr);
    return EXIT_FAILURE;
  }
  const long times = std::strtol(argv[2], nullptr, 10);
  Schedule schedule;
  for (long i = 0; i < times; ++i) {
    if (!read_schedule_file(schedule, argv[1])) {
      std::fprintf(stderr, "cannot read %s\n", argv[1]);
      return EXIT_FAILURE;
    }
  }
  std::printf("%zu items\n", schedule.schedule.size());
  return EXIT_SUCCESS;
}
