#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/media/file_metadata.hpp"

/// The tags embedded in an open media file, in ascending order of their names; several values of
/// one name are several entries. `name` is the file's name: its extension counts only where the
/// content does not tell the format. Nothing when a read failed: tags may be missing then.
std::optional<std::vector<MetadataEntry>> read_embedded_tags(int fd, const std::string& name);
