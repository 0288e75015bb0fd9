#pragma once

#include <string>
#include <vector>

#include "station/station_config.hpp"

/// A path unit of systemd that watches the schedule file of each channel. Of a channel with a
/// render-manager file, it watches this file.
std::string path_unit_of(const std::vector<StationChannel>& channels);
