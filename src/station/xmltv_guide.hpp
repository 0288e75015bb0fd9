#pragma once

#include <string>
#include <vector>

#include "station/programme.hpp"
#include "station/station_config.hpp"

/// The beginning of an XMLTV guide, with its channels.
std::string guide_head(const std::vector<const StationChannel*>& channels);

/// The end of a guide.
inline constexpr const char* guide_foot = "</tv>\n";

/// Writes the programmes to the channel's file (channel_process.hpp).
void write_programmes(const std::vector<Programme>& programmes, const StationChannel& channel,
                      int file);
