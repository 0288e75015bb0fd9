#pragma once

#include <ctime>
#include <optional>
#include <string>

#include "schedule/schedule.hpp"
#include "station/programme.hpp"

/// The announced programme on air, and the first that starts later. Nothing when no programme is
/// announced then, or none in the next 24 hours.
struct NowAndNext {
  std::optional<Programme> now;
  std::optional<Programme> next;
};

/// Of the schedule of that path, which is placed in the unit of `now`. The schedule is only read
/// once more if the end of the unit cuts one of the two.
NowAndNext now_and_next(const Schedule& schedule, const std::string& path, time_t now);
