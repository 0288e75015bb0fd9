#pragma once

#include <ctime>
#include <optional>
#include <string>
#include <vector>

#include "grab/guide_config.hpp"
#include "grab/programme.hpp"

/// The days that a guide covers, in the channel's zone.
struct GuideSpan {
  int days = 14;
  int offset = 0;  ///< days from today to the first
};

/// The programmes that the channel announces in the span, in order of their starts. The process
/// must be in the channel's zone and folder. Nothing, with `error`, when its schedule cannot be
/// read.
std::optional<std::vector<Programme>> programmes_of_channel(const GuideChannel& channel,
                                                            const GuideSpan& span, time_t now,
                                                            std::string& error);
