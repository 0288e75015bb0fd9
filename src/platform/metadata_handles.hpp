#pragma once

#include <memory>
#include <utility>

#include "platform/metadata_v4.h"

// Owners of the metadata library's objects, and the only way to go through a set.

struct DestroyFileContext {
  void operator()(metadata_v4_context* context) const { metadata_v4_context_destroy(context); }
};
using FileContext = std::unique_ptr<metadata_v4_context, DestroyFileContext>;

struct DestroyMetadataSet {
  void operator()(metadata_v4_metadata_context* set) const {
    metadata_v4_metadata_context_destroy(set);
  }
};
using MetadataSet = std::unique_ptr<metadata_v4_metadata_context, DestroyMetadataSet>;

/// A context bound to the file at the path, or null.
inline FileContext bind_file_context(const char* path) {
  FileContext context(metadata_v4_context_create());
  if (!context) {
    return nullptr;
  }
  // The file's metadata may not be needed: an entry of the play log replaces it.
  context->options &= static_cast<uint8_t>(~METADATA_V4_READ_WHILE_BINDING);
  return metadata_v4_context_set_file_location(context.get(), path) == 0 ? std::move(context)
                                                                         : nullptr;
}

/// All metadata of the file, or null.
inline MetadataSet read_metadata_set(const FileContext& context) {
  return MetadataSet(metadata_v4_metadata_context_from_file(context.get(), 0, nullptr));
}

/// Calls visit(entry) for each entry of the set, which may be null, in index order.
template <typename Visit>
void for_each_entry(const MetadataSet& set, Visit visit) {
  const int32_t count = set != nullptr ? set->entry_count : 0;
  for (int32_t index = 0; index < count; ++index) {
    const metadata_v4_entry* entry = metadata_v4_metadata_context_read_entry(set.get(), index);
    if (entry != nullptr) {
      visit(*entry);
    }
  }
}

/// Whether the entry has a name and a value. Other entries are ignored.
inline bool is_whole(const metadata_v4_entry& entry) {
  return entry.name != nullptr && entry.value != nullptr;
}

/// The name of the entry's group, or null when it is in none.
inline const char* group_name(const MetadataSet& set, const metadata_v4_entry& entry) {
  return metadata_v4_metadata_context_read_group_name(set.get(), entry.group);
}
