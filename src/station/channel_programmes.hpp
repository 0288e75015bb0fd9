#pragma once

#include <ctime>
#include <optional>
#include <string>
#include <vector>

#include "schedule/schedule.hpp"
#include "station/programme.hpp"
#include "station/station_config.hpp"

/// The days that a guide covers, in the channel's zone.
struct GuideSpan {
  int days = 14;
  int offset = 0;  ///< days from today to the first
};

/// The span as calendar times: programmes that start in [begin, end).
struct GuideTimes {
  time_t begin;
  time_t end;
};

/// The process must be in the channel's zone.
GuideTimes times_of_span(const GuideSpan& span, time_t now);

/// The programmes that a completed schedule announces in that time, in order of their starts.
/// `with_previous` adds the programme on air when it begins. The items of the schedule are changed.
std::vector<Programme> programmes_of_schedule(Schedule& schedule, const std::string& path,
                                              const GuideTimes& times, bool with_previous);

/// The programmes that the channel announces in the span, in order of their starts. The process
/// must be in the channel's zone and folder. Nothing, with `error`, when its schedule cannot be
/// read.
std::optional<std::vector<Programme>> programmes_of_channel(const StationChannel& channel,
                                                            const GuideSpan& span, time_t now,
                                                            std::string& error);
