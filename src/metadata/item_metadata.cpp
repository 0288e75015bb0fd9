#include "metadata/item_metadata.hpp"

#include <array>
#include <cstdlib>
#include <string_view>

#include "platform/activity.hpp"
#include "platform/metadata_context.hpp"

namespace {

/// Heads a set that was built from the play log.
constexpr const char* source_name = "*metadata source";
constexpr const char* source_value = "playlist log";

constexpr std::string_view announce_name = "schedule announce";

struct TextField {
  std::string_view name;  ///< of the metadata entry
  std::string ItemMetadata::*field;
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

metadata_v4_metadata_context* set_from_play_log(const ScheduleItem& item) {
  metadata_v4_metadata_context* set = metadata_v4_metadata_context_create();
  if (set == nullptr) {
    return nullptr;
  }
  constexpr int32_t no_group = -1;
  metadata_v4_metadata_context_add_name_value_pair(set, source_name, 0, source_value, 0, no_group);
  for (const auto& [name, value] : item.metadata) {
    metadata_v4_metadata_context_add_name_value_pair(set, name.c_str(), 0, value.c_str(), 0,
                                                     no_group);
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
  if (entry.name == nullptr || entry.value == nullptr) {
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

void open_item_metadata(metadata_v4_metadata_context*& set, metadata_v4_context*& context,
                        const char* path, const ScheduleItem& item) {
  set = metadata_v4_metadata_context_destroy(set);
  context = metadata_v4_context_destroy(context);
  if (item.is_block) {
    return;
  }
  const Activity activity("reading the metadata of", path);
  context = metadata_v4_context_create();
  if (!bind_context(context, path)) {
    return;
  }
  set = item.metadata.empty() ? metadata_v4_metadata_context_from_file(context, 0, nullptr)
                              : set_from_play_log(item);
}

void extract_entries(ItemMetadata& metadata, metadata_v4_metadata_context* set) {
  for_each_entry(set, [&](const metadata_v4_entry& entry) { extract_entry(metadata, entry); });
}

int32_t derive_announce(const ItemMetadata& metadata, bool is_default, const ScheduleItem& item) {
  if (item.is_block) {
    return item.block_announce ? 1 : 0;
  }
  if (metadata.announce >= 0) {
    return metadata.announce;
  }
  return !is_default && is_announced_by_itself(metadata, item) ? 1 : 0;
}

void extract_item_metadata(ItemMetadata& metadata, metadata_v4_metadata_context* set,
                           bool is_default, const ScheduleItem& item) {
  extract_entries(metadata, set);
  metadata.announce = derive_announce(metadata, is_default, item);
}

void ItemMetadataSlots::release() {
  set = metadata_v4_metadata_context_destroy(set);
  context = metadata_v4_context_destroy(context);
}

ItemMetadata read_item_metadata(ItemMetadataSlots& slots, const ScheduleItem& item) {
  ItemMetadata metadata;
  open_item_metadata(slots.set, slots.context, item.item.c_str(), item);
  extract_item_metadata(metadata, slots.set, item.is_default, item);
  return metadata;
}
