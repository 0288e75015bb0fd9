#pragma once

#include <ctime>
#include <string>
#include <vector>

#include "schedule/schedule.hpp"
#include "station/programme.hpp"

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
