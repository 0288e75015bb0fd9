#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "station/station_config.hpp"

/// The section with the values of all channels.
inline constexpr std::string_view config_defaults_id = "*";

/// A value as written in the file.
struct ConfigValue {
  std::string text;
  int line;
};

/// A section as written in the file.
struct ConfigSection {
  std::string id;
  int line;
  std::map<std::string, ConfigValue, std::less<>> values;  ///< by key
  bool has_mistake = false;                                ///< so a key may only seem to be missing
};

/// The sections of a configuration file, in its order. Finds mistakes of form, unknown keys, and
/// ids and keys that are there twice.
std::vector<ConfigSection> read_config_sections(std::string_view content,
                                                std::vector<ConfigMistake>& mistakes);

/// A line without its comment and the blanks around it.
std::string_view without_config_comment(std::string_view line);
