#include "metadata/place_schedule.hpp"

#include "metadata/merge_play_log.hpp"
#include "schedule/block_announce.hpp"
#include "schedule/subschedules.hpp"
#include "schedule/unit_times.hpp"

const char* place_schedule(Schedule& schedule, time_t t, const std::string& path) {
  if (!compute_unit_times(schedule, t)) {
    return "Somehow, unable to compute schedule unit times";
  }
  merge_play_log(schedule, path);
  block_announce_subst(schedule);
  patch_all_subschedules(schedule);
  return nullptr;
}
