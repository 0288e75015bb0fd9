#pragma once

#include <cstdint>
#include <cstring>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "platform/metadata_handles.hpp"
#include "schedule/schedule.hpp"

/// What every writer shows of an item, besides its times and path.
struct ItemMetadata {
  int32_t announce = -1;  ///< -1 unknown, 0 no, 1 yes
  std::string description;
  std::string file_type;  ///< a MIME type, such as video/mp4
  std::string program;
  std::string episode;
  std::string summary;
  std::string rating;
  std::string title;
};

/// The metadata of an item: what the play log says about its airing or, without such an entry, what
/// its media file says. The set is null for a block item and for a file without metadata.
struct OpenedMetadata {
  FileContext context;  ///< must outlive the set
  MetadataSet set;
};
OpenedMetadata open_item_metadata(const ScheduleItem& item);

/// Reads the known entries of a set, which may be null. `announce` stays -1 when no entry sets it.
ItemMetadata extract_item_metadata(const MetadataSet& set);

/// The path of the file that gave the last entry of that name its value, such as the media file or
/// its sidecar. Empty when the metadata library does not say it, or the set (or null) has no such
/// entry.
std::string source_of_entry(const MetadataSet& set, std::string_view name);

/// Whether an item is announced, 0 or 1. A block decides for itself. For other items the metadata
/// decides. If it says nothing, an item is announced when it has an event id, a label or a video or
/// audio file and is not a default item.
int32_t derive_announce(const ItemMetadata& metadata, const ScheduleItem& item);

/// Remembers what a writer makes of an item's metadata, once for each media file: a schedule airs
/// the same clip hundreds of times. Blocks and items from the play log have their own metadata;
/// theirs is made each time. `make` gets only the path of the item.
template <typename Made>
class MetadataPerFile {
 public:
  using Make = std::function<Made(const std::string& path, const MetadataSet& set)>;

  explicit MetadataPerFile(Make make) : make_(std::move(make)) {}

  /// Valid until the next call.
  const Made& of(const ScheduleItem& item) {
    if (const Made* known = remembered(item)) {
      return *known;
    }
    const OpenedMetadata opened = open_item_metadata(item);
    own_ = make_(item.item, opened.set);
    if (is_from_file(item) && files_.size() < most_files &&
        text_length(opened.set) <= longest_text) {
      return files_.emplace(item.item, own_).first->second;
    }
    return own_;
  }

  /// What is remembered for the item's file, as long as this object lives; null if nothing is.
  const Made* remembered(const ScheduleItem& item) const {
    if (!is_from_file(item)) {
      return nullptr;
    }
    const auto known = files_.find(item.item);
    return known != files_.end() ? &known->second : nullptr;
  }

 private:
  // These keep the memory within a few megabytes.
  static constexpr size_t most_files = 4096;
  static constexpr size_t longest_text = 2048;

  static bool is_from_file(const ScheduleItem& item) {
    return !item.is_block && item.metadata.empty();
  }

  static size_t text_length(const MetadataSet& set) {
    size_t length = 0;
    for_each_entry(set, [&](const metadata_v4_entry& entry) {
      for (const char* text : {entry.name, entry.value}) {
        length += text != nullptr ? std::strlen(text) : 0;
      }
    });
    return length;
  }

  Make make_;
  std::unordered_map<std::string, Made> files_;
  Made own_;  ///< of the last item with its own metadata
};
