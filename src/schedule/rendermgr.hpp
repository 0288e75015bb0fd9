#pragma once

#include <cstdint>
#include <optional>
#include <string>

// Render-manager files. Their line "item = PATH" names the schedule file of a channel.

/// The path of a channel's render-manager file.
std::string rendermgr_path_of_channel(int32_t channel);

/// The path in the last "item" line; empty when there is none. Nothing when the file cannot be
/// opened. A read error counts as the end of the file and prints a warning on standard error.
std::optional<std::string> read_rendermgr(const std::string& path);
