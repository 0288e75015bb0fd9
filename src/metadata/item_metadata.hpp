#pragma once

#include <cstdint>
#include <string>

#include "platform/metadata_v4.h"
#include "schedule/schedule.hpp"

/// What every writer shows of an item beside its times and path.
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

/// Opens the metadata of an item: what aired with it, if the play log knows, else what its media
/// file says. Both slots are emptied first; the set stays null for a block item and for a file
/// without metadata.
void open_item_metadata(metadata_v4_metadata_context*& set, metadata_v4_context*& context,
                        const char* path, const ScheduleItem& item);

/// Fills in what the entries of a set say; `set` may be null.
void extract_entries(ItemMetadata& metadata, metadata_v4_metadata_context* set);

/// Whether an item is announced: a block as it says itself, any other as its metadata says or, when
/// that says nothing, if it has an event id, a label or a video or audio file and is no default
/// item. 0 or 1.
int32_t derive_announce(const ItemMetadata& metadata, bool is_default, const ScheduleItem& item);

/// Both for one item: fills in all that is known of it.
void extract_item_metadata(ItemMetadata& metadata, metadata_v4_metadata_context* set,
                           bool is_default, const ScheduleItem& item);

/// The two slots of a writer, released when it is done.
struct ItemMetadataSlots {
  ItemMetadataSlots() = default;
  ItemMetadataSlots(const ItemMetadataSlots&) = delete;
  ItemMetadataSlots& operator=(const ItemMetadataSlots&) = delete;
  ~ItemMetadataSlots() { release(); }

  void release();

  metadata_v4_metadata_context* set = nullptr;
  metadata_v4_context* context = nullptr;
};

/// Opens and extracts in one go, as every writer does for each item that it prints.
ItemMetadata read_item_metadata(ItemMetadataSlots& slots, const ScheduleItem& item);

/// Calls visit(entry) for each entry that the set (or null) really holds, in index order.
template <typename Visit>
void for_each_entry(metadata_v4_metadata_context* set, Visit visit) {
  const int32_t count = set != nullptr ? set->entry_count : 0;
  for (int32_t index = 0; index < count; ++index) {
    if (const metadata_v4_entry* entry = metadata_v4_metadata_context_read_entry(set, index)) {
      visit(*entry);
    }
  }
}
