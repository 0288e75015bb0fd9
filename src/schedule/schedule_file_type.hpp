#pragma once

#include <string>

#include "platform/metadata_handles.hpp"

/// Whether the metadata of a file says that it is a schedule: its last ungrouped "file type" is
/// that of a type of schedule. Of which type the schedule is, its own type line says.
bool is_schedule_file(const MetadataSet& set);

/// The same of the file at a path. False when it has no metadata, or the path is empty.
bool is_schedule_file(const std::string& path);
