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
  int jobs = 1;        ///< maximum number of channels in work at the same time
  bool quiet = false;  ///< no progress on standard error
};

/// The result of writing a guide.
struct GuideResult {
  size_t programmes = 0;
  size_t failed = 0;  ///< number of channels that failed; standard error names each one
};

/// Writes a guide with channels and no programmes.
bool write_channels(int fd, const std::vector<GuideChannel>& channels);

/// Writes the whole guide: all channels, then their programmes. Each channel has its own process,
/// in its own zone and folder. A channel whose process meets a shortage of the machine is tried
/// once more, alone. Nothing, with `error`, when the whole guide fails; the text written so far is
/// then not a valid guide.
std::optional<GuideResult> write_guide(int fd, const std::vector<GuideChannel>& channels,
                                       const GuideRun& run, time_t now, std::string& error);
