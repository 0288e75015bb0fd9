#pragma once

#include <cstddef>
#include <ctime>
#include <optional>
#include <string>
#include <vector>

#include "station/channel_programmes.hpp"
#include "station/old_guide.hpp"
#include "station/station_config.hpp"

struct GuideRun {
  GuideSpan span;
  int jobs = 1;        ///< maximum number of channels in work at the same time
  bool quiet = false;  ///< no progress on standard error
};

/// The result of writing a guide.
struct GuideResult {
  size_t programmes = 0;
  size_t lacking = 0;  ///< number of channels that failed or that the guards refused
};

/// Writes a guide with channels and no programmes.
bool write_channels(int fd, const std::vector<StationChannel>& channels);

/// Writes the whole guide: all channels, then their programmes. Each channel has its own process,
/// in its own zone and folder. If the old guide is there, a channel that fails or that the guards
/// refuse keeps its programmes from it, as far as they lie ahead. Without an old guide, a refused
/// channel has the programmes that there are. Standard error names each such channel. Nothing, with
/// `error`, when the whole guide fails; the text written so far is then not a valid guide.
std::optional<GuideResult> write_guide(int fd, const std::vector<StationChannel>& channels,
                                       const GuideRun& run, const OldGuide& old_guide, time_t now,
                                       std::string& error);
