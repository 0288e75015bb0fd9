#include "metadata/item_metadata.hpp"

namespace {

bool announced_by_itself(const ItemMetadata& metadata, const ScheduleItem& item) {
  return !item.event_id.empty() || metadata.file_type.starts_with("video/") ||
         metadata.file_type.starts_with("audio/") || !item.label.empty();
}

}  // namespace

void extract_item_metadata(ItemMetadata& metadata, bool is_default, const ScheduleItem& item) {
  if (metadata.announce < 0) {
    metadata.announce = !is_default && announced_by_itself(metadata, item) ? 1 : 0;
  }
}
