#include "metadata/item_metadata.hpp"

#include <array>
#include <cstdlib>
#include <string_view>

#include "platform/system/activity.hpp"

namespace {

/// The first entry of a set that was built from the play log.
constexpr const char* source_name = "*metadata source";
constexpr const char* source_value = "playlist log";

constexpr std::string_view announce_name = "schedule announce";

using ItemText = std::string ItemMetadata::*;

struct TextField {
  std::string_view name;  ///< of the metadata entry
  ItemText field;
};

constexpr std::array<TextField, 7> text_fields = {{
    {"title", &ItemMetadata::title},
    {"program", &ItemMetadata::program},
    {"episode", &ItemMetadata::episode},
    {"summary", &ItemMetadata::summary},
    {"rating", &ItemMetadata::rating},
    {"file type", &ItemMetadata::file_type},
    {"description", &ItemMetadata::description},
}};

MetadataSet set_from_play_log(const ScheduleItem& item) {
  MetadataSet set(metadata_v4_metadata_context_create());
  const auto add = [&](const char* name, const char* value) {
    constexpr size_t up_to_its_nul = 0;
    constexpr int32_t no_group = -1;
    metadata_v4_metadata_context_add_name_value_pair(set.get(), name, up_to_its_nul, value,
                                                     up_to_its_nul, no_group);
  };
  if (set != nullptr) {
    add(source_name, source_value);
    for (const auto& [name, value] : item.metadata) {
      add(name.c_str(), value.c_str());
    }
  }
  return set;
}

int32_t announce_of(const char* value) {
  if (*value == '\0') {
    return -1;
  }
  return static_cast<int32_t>(std::strtol(value, nullptr, 10)) > 0 ? 1 : 0;
}

void extract_entry(ItemMetadata& metadata, const metadata_v4_entry& entry) {
  if (!is_whole(entry)) {
    return;
  }
  const std::string_view name = entry.name;
  if (name == announce_name) {
    metadata.announce = announce_of(entry.value);
    return;
  }
  for (const TextField& text : text_fields) {
    if (name == text.name) {
      metadata.*text.field = entry.value;
      return;
    }
  }
}

bool is_announced_by_itself(const ItemMetadata& metadata, const ScheduleItem& item) {
  return !item.event_id.empty() || metadata.file_type.starts_with("video/") ||
         metadata.file_type.starts_with("audio/") || !item.label.empty();
}

}  // namespace

OpenedMetadata open_item_metadata(const ScheduleItem& item) {
  if (item.is_block) {
    return {};
  }
  const Activity activity("reading the metadata of", item.item.c_str());
  OpenedMetadata opened{bind_file_context(item.item.c_str()), nullptr};
  if (opened.context != nullptr) {
    opened.set =
        item.metadata.empty() ? read_metadata_set(opened.context) : set_from_play_log(item);
  }
  return opened;
}

ItemMetadata extract_item_metadata(const MetadataSet& set) {
  ItemMetadata metadata;
  for_each_entry(set, [&](const metadata_v4_entry& entry) { extract_entry(metadata, entry); });
  return metadata;
}

int32_t derive_announce(const ItemMetadata& metadata, const ScheduleItem& item) {
  if (item.is_block) {
    return item.block_announce ? 1 : 0;
  }
  if (metadata.announce >= 0) {
    return metadata.announce;
  }
  return !item.is_default && is_announced_by_itself(metadata, item) ? 1 : 0;
}

std::string source_of_entry(const MetadataSet& set, std::string_view name) {
  if (metadata_v4_metadata_context_read_entry_source == nullptr || set == nullptr) {
    return {};
  }
  for (int32_t index = set->entry_count; index-- > 0;) {
    const metadata_v4_entry* entry = metadata_v4_metadata_context_read_entry(set.get(), index);
    if (entry != nullptr && is_whole(*entry) && entry->name == name) {
      const char* source = metadata_v4_metadata_context_read_entry_source(set.get(), index);
      return source != nullptr ? source : std::string();
    }
  }
  return {};
}
