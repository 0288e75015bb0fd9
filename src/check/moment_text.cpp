#include <iterator>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "check/story.hpp"
#include "checks/finding.hpp"
#include "metadata/item_metadata.hpp"
#include "platform/system/clock.hpp"
#include "platform/time/local_text.hpp"
#include "schedule/schedule_time.hpp"
#include "writers/gracenote_writer.hpp"
#include "writers/listing_rows.hpp"
#include "writers/rovi_writer.hpp"

namespace {

std::string time_or_none(time_t t, const char* format) {
  std::string text = local_text(t, format);
  return text.empty() ? "no time" : text;
}

std::string announce_rule(const ItemMetadata& metadata, const ScheduleItem& item) {
  if (item.is_block) {
    return "yes, as a block";
  }
  if (metadata.announce >= 0) {
    return std::string(metadata.announce > 0 ? "yes" : "no") + ", by 'schedule announce'";
  }
  if (item.is_default) {
    return "no, as it is a default item";
  }
  if (!item.event_id.empty()) {
    return "yes, for its event id";
  }
  if (!item.label.empty()) {
    return "yes, for its label";
  }
  const std::string type = metadata.file_type.empty() ? "unknown" : quoted(metadata.file_type);
  return derive_announce(metadata, item) > 0
             ? "yes, for its file type " + type
             : "no: without label and event id, and its file type is " + type;
}

/// What gave the entry of that name its value: the play log, or a file if the metadata library
/// knows which.
std::string source_of(const ScheduleItem& item, const MetadataSet& set, std::string_view name) {
  if (!item.metadata.empty()) {
    return "play.log";
  }
  const std::string source = source_of_entry(set, name);
  return source.empty() ? "the metadata library" : source;
}

template <typename Row>
std::string row_text(const std::vector<Row>& rows, time_t t, bool is_announced) {
  const ListingHorizon horizon(current_time());
  for (const Row& row : rows) {
    if (row.start <= t && t < row.end) {
      const std::string times = time_or_none(row.start, "%F %R") + " to " +
                                time_or_none(row.end, "%F %R") + ", " +
                                std::to_string((row.end - row.start) / 60) + " minutes";
      return horizon.shows(row) ? "the row of " + times + ", " + quoted(row.title)
                                : "none: the listing runs from today to 21 days ahead";
    }
  }
  return is_announced ? "none: it is shorter than five minutes, and its neighbours have no room"
                      : "none: it is not announced";
}

void append_line(std::string& out, std::string_view name, const std::string& text) {
  out += "  " + std::string(name) + ": " + escaped(text) + "\n";
}

void append_item(std::string& out, const ScheduleItem& item, Story& story, const Schedule& schedule,
                 time_t t) {
  UnitClock clock(schedule);
  append_line(out, "airs",
              (item.item.empty() ? "nothing" : quoted(item.item)) + ", from " +
                  time_or_none(clock.time_of(item.start), "%F %T") + " to " +
                  time_or_none(clock.time_of(item.end), "%F %T"));
  const Origin& origin = story.origin_at(item.start);
  append_line(out, "from", origin.where);
  for (const std::string& event : origin.events) {
    out += "  " + escaped(event) + "\n";
  }
  const OpenedMetadata opened = open_item_metadata(item);
  const ItemMetadata metadata = extract_item_metadata(opened.set);
  append_line(out, "announced", announce_rule(metadata, item));
  for (const auto& [name, value] :
       {std::pair<const char*, const std::string&>{"title", metadata.title},
        {"program", metadata.program},
        {"episode", metadata.episode},
        {"description", metadata.description},
        {"summary", metadata.summary},
        {"rating", metadata.rating}}) {
    if (!value.empty()) {
      append_line(out, name, quoted(value) + ", of " + source_of(item, opened.set, name));
    }
  }
  const bool is_announced = derive_announce(metadata, item) > 0;
  append_line(
      out, "rovi",
      row_text(rovi_rows(schedule, schedule.unit_start, schedule.unit_end), t, is_announced));
  append_line(
      out, "gracenote",
      row_text(gracenote_rows(schedule, schedule.unit_start, schedule.unit_end), t, is_announced));
}

const ScheduleItem* item_at(const Schedule& schedule, time_t t) {
  const ScheduleItem* airing = nullptr;
  UnitClock clock(schedule);
  for (const auto& [start, item] : schedule.schedule) {
    const time_t item_start = clock.time_of(start);
    if (item_start != -1 && item_start <= t && t < clock.time_of(item.end)) {
      airing = &item;
    }
  }
  return airing;
}

}  // namespace

namespace {

/// What airs at the same date and clock of another year, in an endless schedule.
std::string other_years(const Schedule& schedule, uint64_t position) {
  std::string years;
  const uint64_t own_year = position / seconds_per_year;
  for (uint64_t year = 0; year < schedule_years; ++year) {
    const uint64_t there = year * seconds_per_year + position % seconds_per_year;
    const auto after = schedule.schedule.upper_bound(there);
    if (year == own_year || after == schedule.schedule.begin()) {
      continue;
    }
    const ScheduleItem& item = std::prev(after)->second;
    if (!item.is_default && there < item.end) {
      years += (years.empty() ? "" : ", ") + std::to_string(first_schedule_year + year) + ": " +
               quoted(item.item);
    }
  }
  return years;
}

}  // namespace

std::string text_of_moment(const Schedule& schedule, Story& story, time_t t,
                           const std::string& file) {
  const uint64_t position = time_to_schedule_seconds(schedule, t);
  std::string out =
      time_or_none(t, "%a %F %T %z") + ", " + story.position(position) + " of " + file + "\n";
  if (const ScheduleItem* airing = item_at(schedule, t)) {
    append_item(out, *airing, story, schedule, t);
  } else {
    append_line(out, "airs", "nothing that the schedule knows of");
  }
  const bool has_years = find_schedule_type(schedule.type)->day_name == DayName::date;
  const std::string years = has_years ? other_years(schedule, position) : std::string();
  if (!years.empty()) {
    append_line(out, "other years", years);
  }
  for (const std::string& lost : story.lost_at(position)) {
    append_line(out, "lost", lost);
  }
  return out;
}
