#pragma once

#include <cstdint>
#include <ctime>
#include <string>
#include <vector>

#include "schedule/schedule.hpp"
#include "writers/metadata_map.hpp"

/// One row of the Gracenote listing.
struct GracenoteRow {
  time_t start = 0;  ///< calendar time
  time_t end = 0;
  int32_t duration = 0;  ///< whole minutes; set after the rows are cleaned up
  std::string title;
  std::string episode_title;
  std::string description_short;  ///< the first 100 bytes
  std::string description_long;   ///< the rest
  std::string new_live_repeat = "Repeat";
  std::string season;
  std::string hosts;
  std::string guests;
  std::string producers;
  std::string genre = "unknown";
  bool hd = false;
  bool cc = false;
  bool dvs = false;
  std::string rating = "None";
};

/// All rows of the listing, on any day.
std::vector<GracenoteRow> gracenote_rows(const Schedule& schedule, time_t window_start,
                                         time_t window_end);

// For users of the library. No program calls what stands below.

/// The row of one piece of an item with that metadata. (The listing makes one row for each file and
/// copies it.)
GracenoteRow make_gracenote_row(Schedule& schedule, const ScheduleItem& piece,
                                const MetadataMap& metadata);
