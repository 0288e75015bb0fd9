#pragma once

#include <string>

#include "platform/metadata_handles.hpp"

/// Whether the metadata of a file says that it is a schedule: its last ungrouped "file type" is
/// that of a type of schedule. Of which type the schedule is, its own type line says.
bool is_schedule_file(const MetadataSet& set);

/// What else of a file's metadata the run needs later.
enum class LaterUse { metadata, nothing };

/// The same of the file at a path. False when it has no metadata, or the path is empty. The file is
/// read once for this and all later uses. If there is no later use, much less of most media is
/// read.
bool is_schedule_file(const std::string& path, LaterUse later_use = LaterUse::metadata);
