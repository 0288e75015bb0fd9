#pragma once

#include <boost/optional.hpp>
#include <cstdint>
#include <ctime>
#include <string>
#include <vector>

#include "schedule/schedule.hpp"
#include "writers/genre.hpp"
#include "writers/metadata_map.hpp"

/// One row of the Rovi "LO X-List". No metadata fills the fields marked unused, but the listing
/// service expects their columns.
struct RoviRow {
  time_t start = 0;  ///< calendar time
  time_t end = 0;
  std::string title;
  std::string description;
  boost::optional<RoviCategory> category;
  std::string program_type;  ///< unused
  std::string episode_title;
  int32_t episode_number = -1;  ///< unused
  std::string schedule_rating;
  std::string airing_type;  ///< unused
  std::string captioning;
  std::string credits;         ///< unused
  int32_t release_year = -1;   ///< unused
  std::string language;        ///< unused
  int32_t season_number = -1;  ///< unused
};

/// The rows of the listing, whatever their day.
std::vector<RoviRow> rovi_rows(const Schedule& schedule, time_t window_start, time_t window_end);

// For users of the library. No program calls what stands below.

/// The row of one piece of an item with that metadata. (The listing makes a row once for each
/// file.)
RoviRow make_rovi_row(Schedule& schedule, const ScheduleItem& piece, const MetadataMap& metadata);

/// The printed texts of a row, in column order.
std::vector<std::string> rovi_row_fields(const RoviRow& row, const std::string& station_id);
