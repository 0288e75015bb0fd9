#include "platform/media/file_metadata.hpp"

#include <algorithm>
#include <functional>
#include <iterator>
#include <optional>
#include <set>
#include <utility>

#include "platform/media/embedded_tags.hpp"
#include "platform/media/media_source.hpp"
#include "platform/media/media_stream.hpp"
#include "platform/media/mime_type.hpp"
#include "platform/media/mp4_parts.hpp"
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

/// Whether none of the file's tags can be so large that a warning would name it. Of other files the
/// tags are read even if only the type is asked for, so that the warning comes.
bool has_small_tags(const MediaSource& source) {
  const long most = static_cast<long>(largest_tag);
  return source.length() <= most || is_transport_stream(source.head()) ||
         (is_mp4_head(source.head()) && mp4_tags_end_within(source, most));
}

bool is_binary(const MediaSource& source) {
  return source.head().find('\0') != std::string::npos;
}

/// All metadata of an open file. `sidecar` has none of it yet.
std::shared_ptr<const FileMetadata> read_all(MediaSource& source, FileMetadata sidecar,
                                             const std::string& name) {
  auto metadata = std::make_shared<FileMetadata>(std::move(sidecar));
  std::vector<MetadataEntry> own;
  if (!has_ungrouped(*metadata, file_type_name)) {
    std::optional<std::string> type = detect_mime_type(source);
    if (!type) {
      return nullptr;
    }
    own.push_back({file_type_name, std::move(*type), no_group});
  }
  std::optional<std::vector<MetadataEntry>> tags = read_embedded_tags(source, name);
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

TypeReading read_file(int directory, const std::string& name, bool for_type) {
  const SizedFile opened = open_optional_sized_file(directory, name.c_str());
  if (!opened.file.is_open()) {
    return {};
  }
  std::optional<FileMetadata> sidecar = read_sidecar(directory, name);
  MediaSource source(opened.file.get(), opened.size);
  if (!source.read_head()) {
    return {};
  }
  if (for_type && !sidecar && is_binary(source) && has_small_tags(source)) {
    return {true, nullptr};
  }
  return {false, read_all(source, std::move(sidecar).value_or(FileMetadata()), name)};
}

}  // namespace

std::shared_ptr<const FileMetadata> read_file_metadata(int directory, const std::string& name) {
  return read_file(directory, name, false).metadata;
}

TypeReading read_file_for_type(int directory, const std::string& name) {
  return read_file(directory, name, true);
}
