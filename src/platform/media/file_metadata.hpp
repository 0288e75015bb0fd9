#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

// What this metadata library knows of one media file.

inline constexpr int32_t no_group = -1;

struct MetadataEntry {
  std::string name;
  std::string value;
  int32_t group = no_group;  ///< index into FileMetadata::groups
};

struct FileMetadata {
  std::vector<MetadataEntry> entries;
  size_t own_entries = 0;  ///< the first of them are of the file itself, the rest of its sidecar
  std::vector<std::string> groups;
};

/// All metadata of a file: its MIME type as "file type", then its embedded tags in ascending order
/// of their names, then its sidecar's entries in file order. An ungrouped name in the sidecar
/// replaces all other entries of that name. Null when the file is missing, is not a regular file or
/// cannot be read.
std::shared_ptr<const FileMetadata> read_file_metadata(int directory, const std::string& name);

/// The same for a caller that only asks whether the file is a schedule.
struct TypeReading {
  bool is_no_schedule = false;  ///< the head of the file says so, and nothing else was read
  std::shared_ptr<const FileMetadata> metadata;  ///< as above, if the head does not say so
};
TypeReading read_file_for_type(int directory, const std::string& name);
