#include "platform/standalone/file_metadata.hpp"

#include <optional>
#include <set>
#include <utility>

#include "platform/standalone/embedded_tags.hpp"
#include "platform/standalone/mime_type.hpp"
#include "platform/standalone/sidecar.hpp"
#include "platform/system/file.hpp"

namespace {

constexpr const char* file_type_name = "file type";

std::set<std::string_view> ungrouped_names(const FileMetadata& metadata) {
  std::set<std::string_view> names;
  for (const MetadataEntry& entry : metadata.entries) {
    if (entry.group == no_group) {
      names.insert(entry.name);
    }
  }
  return names;
}

}  // namespace

std::shared_ptr<const FileMetadata> read_file_metadata(int directory, const std::string& name) {
  const FileDescriptor file = open_optional_file(directory, name.c_str());
  if (!file.is_open()) {
    return nullptr;
  }
  FileMetadata sidecar = read_sidecar(directory, name);
  const std::set<std::string_view> replaced = ungrouped_names(sidecar);
  auto metadata = std::make_shared<FileMetadata>();
  if (!replaced.contains(file_type_name)) {
    std::optional<std::string> type = detect_mime_type(file.get());
    if (!type) {
      return nullptr;
    }
    metadata->entries.push_back({file_type_name, std::move(*type), no_group});
  }
  std::optional<std::vector<MetadataEntry>> tags = read_embedded_tags(file.get(), name);
  if (!tags) {
    return nullptr;
  }
  for (MetadataEntry& tag : *tags) {
    if (!replaced.contains(tag.name)) {
      metadata->entries.push_back(std::move(tag));
    }
  }
  metadata->groups = std::move(sidecar.groups);
  for (MetadataEntry& entry : sidecar.entries) {
    metadata->entries.push_back(std::move(entry));
  }
  return metadata;
}
