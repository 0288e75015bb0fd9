#include "writers/rovi_writer.hpp"

#include <array>
#include <string_view>

#include "schedule/run_options.hpp"
#include "schedule/schedule_time.hpp"
#include "writers/formats.hpp"
#include "writers/listing_rows.hpp"
#include "writers/listing_text.hpp"
#include "writers/time_text.hpp"

namespace {

using Row = const RoviRow&;

std::string nothing(Row) {
  return {};
}

std::string number_from(int32_t number, int32_t lowest) {
  return number >= lowest ? std::to_string(number) : std::string();
}

// Only title and description are quoted. A comma in another column is printed unchanged.
constexpr auto columns = std::to_array<ListingColumn<RoviRow>>({
    {"Station_ID", [](Row) { return run_options.station_id; }},
    {"Program Start Date", [](Row row) { return time_to_date(row.start); }},
    {"Program Start Time", [](Row row) { return time_to_clock(row.start); }},
    {"Program End Time", [](Row row) { return time_to_clock(row.end); }},
    {"Duration", [](Row row) { return minutes_between(row.start, row.end); }},
    {"Program Title", [](Row row) { return csv_quote(row.title); }},
    {"Program Description", [](Row row) { return csv_quote(row.description); }},
    {"Category",
     [](Row row) {
       return genre_display_name(row.category ? row.category->genre : ListingGenre::Other);
     }},
    {"Sub Category", [](Row) { return subcategory_display_name(); }},
    {"Time Zone", [](Row) { return std::string("Local"); }},
    {"Program Type", [](Row row) { return row.program_type; }},
    {"Episode Title", [](Row row) { return row.episode_title; }},
    {"Episode Number", [](Row row) { return number_from(row.episode_number, 0); }},
    {"Image", nothing},
    {"Schedule Rating", [](Row row) { return row.schedule_rating; }},
    {"Airing Type", [](Row row) { return row.airing_type; }},
    {"Captioning", [](Row row) { return row.captioning; }},
    {"Credits", [](Row row) { return row.credits; }},
    {"Release Year", [](Row row) { return number_from(row.release_year, 1); }},
    {"Language", [](Row row) { return row.language; }},
    {"Season Number", [](Row row) { return number_from(row.season_number, 1); }},
});

constexpr std::array<RowText<RoviRow>, 2> joined_texts = {&RoviRow::title, &RoviRow::description};

std::string description_of(const MetadataMap& metadata) {
  if (const auto description = find_value(metadata, "description")) {
    return *description;
  }
  const auto title = find_value(metadata, "title");
  const auto summary = find_value(metadata, "summary");
  if (title && summary) {
    return *title + " - " + *summary;
  }
  return first_value(metadata, "title", "summary");
}

boost::optional<RoviCategory> category_of(const MetadataMap& metadata) {
  auto text = find_value(metadata, "rovi category");
  if (!text) {
    return boost::none;
  }
  RoviCategory category;
  category.genre = normalize_genre(*text);
  if (auto subcategory = find_value(metadata, "rovi subcategory")) {
    category.subcategory = normalize_subcategory(*subcategory);
  }
  return category;
}

/// The service has its own prefix for ratings of the United States.
std::string rating_of(const MetadataMap& metadata) {
  constexpr std::string_view rating_system = "united states/";
  const std::string rating = first_value(metadata, "rating");
  return rating.starts_with(rating_system) ? "US TV:" + rating.substr(rating_system.size())
                                           : rating;
}

RoviRow row_of(const std::string& path, const MetadataMap& metadata) {
  RoviRow row;
  row.title = listing_title(metadata, path);
  row.description = description_of(metadata);
  row.episode_title = first_value(metadata, "episode", "title");
  row.category = category_of(metadata);
  row.captioning = is_yes(first_value(metadata, "cc")) ? "CC" : "";
  row.schedule_rating = rating_of(metadata);
  return row;
}

constexpr Listing<RoviRow> listing = {columns, "\r\n", joined_texts, row_of, nullptr};

}  // namespace

RoviRow make_rovi_row(Schedule& schedule, const ScheduleItem& piece, const MetadataMap& metadata) {
  RoviRow row = row_of(piece.item, metadata);
  row.start = schedule_seconds_to_time(schedule, piece.start);
  row.end = schedule_seconds_to_time(schedule, piece.end);
  return row;
}

std::vector<std::string> rovi_row_fields(const RoviRow& row, const std::string& station_id) {
  std::vector<std::string> fields;
  fields.reserve(columns.size());
  for (const ListingColumn<RoviRow>& column : columns) {
    fields.push_back(column.text(row));
  }
  fields.front() = station_id;
  return fields;
}

std::vector<RoviRow> rovi_rows(const Schedule& schedule, time_t window_start, time_t window_end) {
  return listing_rows(schedule, window_start, window_end, listing);
}

void print_to_rovi(Schedule& schedule, time_t window_start, time_t window_end) {
  print_listing(schedule, window_start, window_end, listing);
}
