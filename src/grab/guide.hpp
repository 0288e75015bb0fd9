#pragma once

#include <cstddef>
#include <ctime>
#include <optional>
#include <string>
#include <vector>

#include "grab/channel_programmes.hpp"
#include "grab/guide_config.hpp"

struct GuideRun {
  GuideSpan span;
  int jobs = 1;        ///< channels that are worked on at a time
  bool quiet = false;  ///< no progress on standard error
};

/// What became of a guide.
struct GuideResult {
  size_t programmes = 0;
  size_t failed = 0;  ///< channels, each of which is named on standard error
};

/// Writes the channels alone.
bool write_channels(int fd, const std::vector<GuideChannel>& channels);

/// Writes the whole guide: all channels, then their programmes. Each channel is worked on in a
/// process of its own, in its own zone and folder; one that lacks something of the machine is tried
/// once more when no other works. Nothing, with `error`, when the guide as a whole fails: what was
/// written is then no guide.
std::optional<GuideResult> write_guide(int fd, const std::vector<GuideChannel>& channels,
                                       const GuideRun& run, time_t now, std::string& error);
