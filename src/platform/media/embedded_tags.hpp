#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/media/file_metadata.hpp"
#include "platform/media/media_source.hpp"

/// The tags embedded in an open media file, in ascending order of their names. Several values of
/// one name are several entries. `name` is the name of the file; its extension is used only when
/// the content does not decide the format. Nothing when a read failed, because tags may be missing
/// then.
std::optional<std::vector<MetadataEntry>> read_embedded_tags(MediaSource& source,
                                                             const std::string& name);
