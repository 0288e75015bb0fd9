#pragma once

#include <cstdint>
#include <ctime>
#include <optional>
#include <string>
#include <vector>

#include "schedule/schedule.hpp"
#include "station/station_config.hpp"

// The guards of a channel. Each returns the reason why the channel must not be published, in one
// line. An empty text: there is no reason.

std::string complaint_about_zone(const StationChannel& channel);

/// What the checker finds in the schedule file of a station that makes these formats. Media files
/// are not looked at.
std::string complaint_of_checker(const std::string& path, CheckLevel level,
                                 const std::vector<std::string>& formats, time_t now);

/// Whether the announced items are too few.
std::string complaint_about_items(uint64_t items, uint32_t min_items);

/// Whether `count` is less than that share of `last`. `what` names what was counted, `published`
/// what it is compared with.
std::string complaint_about_share(uint64_t count, uint64_t last, uint32_t min_percent,
                                  const char* what, const char* published);

/// The announced items of the unit in which the schedule is placed.
uint64_t count_announced(const Schedule& schedule);

/// The same for the schedule file, placed in the unit of that time. Nothing when it cannot be read.
std::optional<uint64_t> count_announced_at(const std::string& path, time_t t);

/// A number that another content of the file almost certainly changes. Nothing when the file cannot
/// be opened. A read error is a warning that the file is cut short (messages.hpp).
std::optional<uint64_t> fingerprint_of_file(const std::string& path);

/// The reason when the file is not as it was.
std::string complaint_about_change(const std::string& path, std::optional<uint64_t> before);
