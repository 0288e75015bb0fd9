#pragma once

#include <cstdint>
#include <string>

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

/// Fills in what is known of an item. An announce flag that nothing sets is derived: default
/// items are not announced, items with an event id, a label or a video or audio file are.
void extract_item_metadata(ItemMetadata& metadata, bool is_default, const ScheduleItem& item);
