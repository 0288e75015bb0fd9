#pragma once

#include <string>
#include <string_view>

#include "platform/media/file_metadata.hpp"

/// What a sidecar's name has behind that of its media file.
inline constexpr std::string_view sidecar_suffix = ".metadata";

/// The entries of a media file's sidecar, `NAME.metadata` beside it: lines "name = value", "#"
/// comments, "[group]" before the entries of a group and "[]" after them. Empty when there is no
/// such regular file or it cannot be read to its end. Of a file with more than 16 MiB or 500,000
/// entries and groups the lines before that, with a warning.
FileMetadata read_sidecar(int directory, const std::string& media_name);
