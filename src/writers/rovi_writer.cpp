#include "writers/rovi_writer.hpp"

#include <array>
#include <string_view>

#include "platform/clock.hpp"
#include "platform/output.hpp"
#include "schedule/run_options.hpp"
#include "schedule/schedule_time.hpp"
#include "writers/append.hpp"
#include "writers/listing_rows.hpp"
#include "writers/listing_text.hpp"
#include "writers/time_text.hpp"

namespace {

constexpr std::string_view line_end = "\r\n";

/// A column: its header and, for a row, its text.
struct Column {
  const char* header;
  std::string (*text)(const RoviRow& row, const std::string& station_id);
};

using Row = const RoviRow&;
using Station = const std::string&;

std::string number_from(int32_t number, int32_t lowest) {
  return number >= lowest ? std::to_string(number) : std::string();
}

// Only title and description are quoted; a comma anywhere else goes out as it is.
constexpr std::array<Column, 21> columns = {{
    {"Station_ID", [](Row, Station station_id) { return station_id; }},
    {"Program Start Date", [](Row row, Station) { return time_to_date(row.start); }},
    {"Program Start Time", [](Row row, Station) { return time_to_clock(row.start); }},
    {"Program End Time", [](Row row, Station) { return time_to_clock(row.end); }},
    {"Duration", [](Row row, Station) { return minutes_between(row.start, row.end); }},
    {"Program Title", [](Row row, Station) { return csv_quote(row.title); }},
    {"Program Description", [](Row row, Station) { return csv_quote(row.description); }},
    {"Category",
     [](Row row, Station) {
       return genre_display_name(row.category ? row.category->genre : ListingGenre::Other);
     }},
    {"Sub Category", [](Row, Station) { return subcategory_display_name(); }},
    {"Time Zone", [](Row, Station) { return std::string("Local"); }},
    {"Program Type", [](Row row, Station) { return row.program_type; }},
    {"Episode Title", [](Row row, Station) { return row.episode_title; }},
    {"Episode Number", [](Row row, Station) { return number_from(row.episode_number, 0); }},
    {"Image", [](Row, Station) { return std::string(); }},
    {"Schedule Rating", [](Row row, Station) { return row.schedule_rating; }},
    {"Airing Type", [](Row row, Station) { return row.airing_type; }},
    {"Captioning", [](Row row, Station) { return row.captioning; }},
    {"Credits", [](Row row, Station) { return row.credits; }},
    {"Release Year", [](Row row, Station) { return number_from(row.release_year, 1); }},
    {"Language", [](Row row, Station) { return row.language; }},
    {"Season Number", [](Row row, Station) { return number_from(row.season_number, 1); }},
}};

constexpr std::array<std::string RoviRow::*, 2> joined_texts = {&RoviRow::title,
                                                                &RoviRow::description};

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

/// The service knows ratings of the United States by a prefix of its own.
std::string rating_of(const MetadataMap& metadata) {
  constexpr std::string_view rating_system = "united states/";
  const std::string rating = first_value(metadata, "rating");
  return rating.starts_with(rating_system) ? "US TV:" + rating.substr(rating_system.size())
                                           : rating;
}

void append_line(std::string& out, const std::vector<std::string>& fields) {
  const char* separator = "";
  for (const std::string& field : fields) {
    append(out, separator, field);
    separator = ",";
  }
  append(out, line_end);
}

/// All but the times.
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
  for (const Column& column : columns) {
    fields.push_back(column.text(row, station_id));
  }
  return fields;
}

void print_to_rovi(Schedule& schedule, time_t window_start, time_t window_end) {
  const ListingHorizon horizon(current_time());
  std::vector<RoviRow> rows =
      collect_rows<RoviRow>(schedule, window_start, window_end, row_of, joined_texts);
  clean_rows(rows);
  std::vector<std::string> headers;
  headers.reserve(columns.size());
  for (const Column& column : columns) {
    headers.emplace_back(column.header);
  }
  std::string out;
  append_line(out, headers);
  for (const RoviRow& row : rows) {
    if (horizon.shows(row)) {
      append_line(out, rovi_row_fields(row, run_options.station_id));
      write_output_when_large(out);
    }
  }
  write_output(out);
}
