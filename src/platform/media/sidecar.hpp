#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/media/file_metadata.hpp"

/// A sidecar's name is that of its media file with this behind it.
inline constexpr std::string_view sidecar_suffix = ".metadata";

/// The entries of a media file's sidecar, `NAME.metadata` beside it. It has lines "name = value",
/// comments with "#", "[group]" before the entries of a group and "[]" after them. Nothing when
/// there is no such regular file. Empty when it cannot be read to its end. If it has more than 16
/// MiB or 500,000 entries and groups, only the lines before that count, with a warning.
std::optional<FileMetadata> read_sidecar(int directory, const std::string& media_name);
