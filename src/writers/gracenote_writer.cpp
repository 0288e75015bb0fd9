#include "writers/gracenote_writer.hpp"

#include <array>
#include <cstdlib>
#include <string_view>
#include <utility>
#include <vector>

#include "schedule/run_options.hpp"
#include "schedule/schedule_time.hpp"
#include "writers/formats.hpp"
#include "writers/listing_rows.hpp"
#include "writers/listing_text.hpp"
#include "writers/time_text.hpp"

namespace {

constexpr size_t short_description_length = 100;

using Row = const GracenoteRow&;

std::string nothing(Row) {
  return {};
}

std::string flag(bool is_set) {
  return is_set ? "Y" : "N";
}

// Every text is quoted, except the station's name.
constexpr auto columns = std::to_array<ListingColumn<GracenoteRow>>({
    {"Call Letters", [](Row) { return run_options.station_id; }},
    {"Air Date", [](Row row) { return csv_quote(time_to_date(row.start)); }},
    {"Air Time", [](Row row) { return csv_quote(time_to_clock(row.start)); }},
    {"Program Title",
     [](Row row) { return csv_quote(row.title.empty() ? "(untitled)" : row.title); }},
    {"Episode Title", [](Row row) { return csv_quote(row.episode_title); }},
    {"New/Live/Repeat", [](Row row) { return csv_quote(row.new_live_repeat); }},
    {"Original Air Date", nothing},
    {"Season Number", [](Row row) { return csv_quote(row.season); }},
    {"Episode Number", nothing},
    {"Description: 101-250 characters", [](Row row) { return csv_quote(row.description_long); }},
    {"Description: 40-100 characters", [](Row row) { return csv_quote(row.description_short); }},
    {"Hosts", [](Row row) { return csv_quote(row.hosts); }},
    {"Guests", [](Row row) { return csv_quote(row.guests); }},
    {"Executive Producers", [](Row row) { return csv_quote(row.producers); }},
    {"Genre", [](Row row) { return csv_quote(row.genre); }},
    {"Duration", [](Row row) { return std::to_string(row.duration); }},
    {"Production Number", nothing},
    {"TMS ID", nothing},
    {"HD", [](Row row) { return flag(row.hd); }},
    {"CC", [](Row row) { return flag(row.cc); }},
    {"DVS", [](Row row) { return flag(row.dvs); }},
    {"Parental Rating", [](Row row) { return csv_quote(row.rating); }},
});

constexpr std::array<RowText<GracenoteRow>, 2> joined_texts = {&GracenoteRow::title,
                                                               &GracenoteRow::description_short};

std::string new_live_repeat_of(const MetadataMap& metadata) {
  const std::string value = first_value(metadata, "newliverepeat");
  if (value == "new") {
    return "New";
  }
  return value == "live" ? "Live" : "Repeat";
}

/// A positive number also means HD, for example the number of lines of the picture.
bool is_hd(const MetadataMap& metadata) {
  const std::string value = first_value(metadata, "hd");
  return is_yes(value) || std::strtol(value.c_str(), nullptr, 10) > 0;
}

void set_description(GracenoteRow& row, const std::string& description) {
  row.description_short = description.substr(0, short_description_length);
  if (description.size() > short_description_length) {
    row.description_long = description.substr(short_description_length);
  }
}

void set_duration(GracenoteRow& row) {
  row.duration = row.start < row.end ? static_cast<int32_t>(lasts(row) / 60) : 0;
}

GracenoteRow row_of(const std::string& path, const MetadataMap& metadata) {
  GracenoteRow row;
  row.title = listing_title(metadata, path);
  row.episode_title = first_value(metadata, "episode");
  set_description(row, first_value(metadata, "description"));
  row.new_live_repeat = new_live_repeat_of(metadata);
  row.season = first_value(metadata, "season");
  row.hosts = first_value(metadata, "hosts");
  row.guests = first_value(metadata, "guests");
  row.producers = first_value(metadata, "producers");
  row.genre = find_value(metadata, "genre").value_or(std::move(row.genre));
  row.hd = is_hd(metadata);
  row.cc = is_yes(first_value(metadata, "cc"));
  row.dvs = is_yes(first_value(metadata, "dvs"));
  row.rating = find_value(metadata, "rating").value_or(std::move(row.rating));
  return row;
}

constexpr Listing<GracenoteRow> listing = {columns, "\n", joined_texts, row_of, set_duration};

}  // namespace

GracenoteRow make_gracenote_row(Schedule& schedule, const ScheduleItem& piece,
                                const MetadataMap& metadata) {
  GracenoteRow row = row_of(piece.item, metadata);
  row.start = schedule_seconds_to_time(schedule, piece.start);
  row.end = schedule_seconds_to_time(schedule, piece.end);
  return row;
}

std::vector<GracenoteRow> gracenote_rows(const Schedule& schedule, time_t window_start,
                                         time_t window_end) {
  return listing_rows(schedule, window_start, window_end, listing);
}

void print_to_gracenote(Schedule& schedule, time_t window_start, time_t window_end) {
  print_listing(schedule, window_start, window_end, listing);
}
