#pragma once

#include <cstdint>
#include <optional>
#include <string>

// Render-manager files, of which the line "item = PATH" says where a channel's schedule is.

/// The file of a channel.
std::string rendermgr_path_of_channel(int32_t channel);

/// The path in the last such line; empty when there is none. Nothing when the file cannot be
/// opened. A read error is the end of the file, with a warning on standard error.
std::optional<std::string> read_rendermgr(const std::string& path);
