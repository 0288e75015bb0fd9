#include "driver/run_steps.hpp"

#include <cstdio>

#include "schedule/subschedules.hpp"

namespace {

constexpr int most_levels = 10;

}  // namespace

void patch_all_subschedules(Schedule& schedule) {
  PreparedSubschedules subschedules;
  for (int level = 0; level < most_levels; ++level) {
    if (!patch_in_subschedules(schedule, subschedules)) {
      return;
    }
  }
  std::fprintf(stderr, "Warning: too many subschedules\n");
}
