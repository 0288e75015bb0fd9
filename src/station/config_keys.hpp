#pragma once

#include <string>
#include <string_view>

#include "station/station_config.hpp"

/// A key of the configuration.
struct ConfigKey {
  std::string_view name;
  /// Sets the channel's field. Returns what is wrong with the value; empty if nothing is.
  std::string (*take)(StationChannel& channel, std::string_view value);
};

/// Null for an unknown key.
const ConfigKey* find_config_key(std::string_view name);

/// What to say about an unknown key.
std::string complaint_about_unknown_key(std::string_view name);
