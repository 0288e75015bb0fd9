#pragma once

#include <optional>
#include <string>

#include "schedule/schedule.hpp"
#include "station/station_config.hpp"

/// The path of the channel's schedule file, which a render-manager file may name. Nothing, with
/// `error`, when there is none.
std::optional<std::string> schedule_path_of(const StationChannel& channel, std::string& error);

/// Reads and completes the schedule. False, with `error`, when that is not possible. Arms the
/// watchdog.
bool read_channel_schedule(Schedule& schedule, const std::string& path, std::string& error);
