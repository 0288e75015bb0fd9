#include "platform/media/file_metadata.hpp"

#include <algorithm>
#include <functional>
#include <iterator>
#include <optional>
#include <set>
#include <utility>

#include "platform/media/embedded_tags.hpp"
#include "platform/media/mime_type.hpp"
#include "platform/media/sidecar.hpp"
#include "platform/system/file.hpp"

namespace {

constexpr const char* file_type_name = "file type";

bool has_ungrouped(const FileMetadata& metadata, std::string_view name) {
  return std::ranges::any_of(metadata.entries, [&](const MetadataEntry& entry) {
    return entry.group == no_group && entry.name == name;
  });
}

/// Removes the tags for which the sidecar has an ungrouped entry.
void remove_replaced(std::vector<MetadataEntry>& tags, const FileMetadata& sidecar) {
  std::set<std::string, std::less<>> names;
  for (const MetadataEntry& tag : tags) {
    names.insert(tag.name);
  }
  std::set<std::string_view> replaced;
  for (const MetadataEntry& entry : sidecar.entries) {
    if (entry.group == no_group && names.contains(entry.name)) {
      replaced.insert(entry.name);
    }
  }
  std::erase_if(tags, [&](const MetadataEntry& tag) { return replaced.contains(tag.name); });
}

}  // namespace

std::shared_ptr<const FileMetadata> read_file_metadata(int directory, const std::string& name) {
  const FileDescriptor file = open_optional_file(directory, name.c_str());
  if (!file.is_open()) {
    return nullptr;
  }
  auto metadata = std::make_shared<FileMetadata>(read_sidecar(directory, name));
  std::vector<MetadataEntry> own;
  if (!has_ungrouped(*metadata, file_type_name)) {
    std::optional<std::string> type = detect_mime_type(file.get());
    if (!type) {
      return nullptr;
    }
    own.push_back({file_type_name, std::move(*type), no_group});
  }
  std::optional<std::vector<MetadataEntry>> tags = read_embedded_tags(file.get(), name);
  if (!tags) {
    return nullptr;
  }
  remove_replaced(*tags, *metadata);
  std::ranges::move(*tags, std::back_inserter(own));
  metadata->own_entries = own.size();
  metadata->entries.insert(metadata->entries.begin(), std::move_iterator(own.begin()),
                           std::move_iterator(own.end()));
  return metadata;
}
