#include "check/explain.hpp"

#include <fcntl.h>

#include <charconv>
#include <cstring>
#include <ctime>
#include <map>
#include <string_view>
#include <utility>
#include <vector>

#include "check/finding.hpp"
#include "check/schedule_source.hpp"
#include "check/source_text.hpp"
#include "check/time_advice.hpp"
#include "check/written_schedule.hpp"
#include "metadata/item_metadata.hpp"
#include "metadata/place_schedule.hpp"
#include "platform/syntax/text.hpp"
#include "platform/system/clock.hpp"
#include "platform/system/file.hpp"
#include "platform/system/messages.hpp"
#include "platform/time/local_text.hpp"
#include "platform/time/parse_time.hpp"
#include "schedule/complete_schedule.hpp"
#include "schedule/schedule_reader.hpp"
#include "schedule/schedule_time.hpp"
#include "schedule/unit_times.hpp"
#include "schedule/watchdog.hpp"
#include "writers/gracenote_writer.hpp"
#include "writers/listing_rows.hpp"
#include "writers/rovi_writer.hpp"

namespace {

std::string time_or_none(time_t t, const char* format) {
  std::string text = local_text(t, format);
  return text.empty() ? "no time" : text;
}

/// Where what airs comes from, and what befell it on the way.
struct Origin {
  std::string where;
  std::vector<std::string> events;
};

class Story {
 public:
  Story(std::string name, Schedule& schedule) : name_(std::move(name)), schedule_(schedule) {}

  void look(const Observation& seen) {
    switch (seen.deed) {
      case Deed::began_section:
        section_line_ = seen.line;
        break;
      case Deed::stored_item:
        take_written(seen);
        break;
      case Deed::stored_block:
        block_lines_[seen.start] = section_line_;
        break;
      case Deed::removed_reversed:
        lost_.push_back({{seen.start, (seen.start / seconds_per_day + 1) * seconds_per_day},
                         "line " + std::to_string(written_[seen.start].line) +
                             ": ends before it starts and is dropped"});
        break;
      case Deed::clipped:
        origins_[seen.start].events.push_back(cut_text(seen));
        lost_.push_back(
            {{seen.other, seen.end},
             "line " + std::to_string(written_[seen.start].line) + ": " + cut_text(seen)});
        break;
      case Deed::filled_gap:
        origins_[seen.start] = {"a gap, as nothing is written for " + position(seen.start) +
                                    " to " + end_position(seen.end) +
                                    ": the default item of the day",
                                {}};
        break;
      case Deed::announced_block:
        take_block(seen);
        break;
      case Deed::block_removed_item: {
        if (is_announced_again_) {
          break;
        }
        const Origin& gone = seen.start == seen.other ? displaced_ : origins_[seen.start];
        origins_[seen.other].events.push_back("in place of: " + gone.where + " at " +
                                              position(seen.start));
        break;
      }
      case Deed::block_cut_item:
        origins_[seen.start].events.push_back(cut_text(seen));
        break;
      case Deed::block_moved_item: {
        Origin origin = origins_[seen.start];
        origin.events.push_back("cut: begins at " + position(seen.other) +
                                ", behind a block, and no longer at " + position(seen.start));
        origins_[seen.other] = std::move(origin);
        break;
      }
      case Deed::patched_in_schedule:
        parent_ = std::move(origins_[seen.start]);
        break;
      case Deed::patched_in_item: {
        Origin origin{
            "the schedule " + quoted(seen.text) + ", which airs in place of " + parent_.where,
            parent_.events};
        origins_[seen.start] = std::move(origin);
        break;
      }
      default:
        break;
    }
  }

  const Origin& origin_at(uint64_t start) { return origins_[start]; }

  /// What is written for the moment and does not air then.
  std::vector<std::string> lost_at(uint64_t moment) const {
    std::vector<std::string> lost;
    for (const auto& [span, what] : lost_) {
      if (span.first <= moment && moment < span.second) {
        lost.push_back(what);
      }
    }
    return lost;
  }

  std::string position(uint64_t seconds) const {
    return written_position(seconds, *find_schedule_type(schedule_.type));
  }

  std::string end_position(uint64_t seconds) const {
    return written_end(seconds, *find_schedule_type(schedule_.type));
  }

 private:
  struct Written {
    int64_t line;
    uint64_t end;
  };

  void take_written(const Observation& seen) {
    const auto earlier = written_.find(seen.start);
    if (earlier != written_.end()) {
      lost_.push_back({{seen.start, earlier->second.end},
                       "line " + std::to_string(earlier->second.line) +
                           ": another item starts at the same time, at line " +
                           std::to_string(section_line_)});
    }
    written_[seen.start] = {section_line_, seen.end};
    origins_[seen.start] = {name_ + ":" + std::to_string(section_line_), {}};
  }

  /// Blocks are announced anew for each schedule that is patched in: the story stays the first.
  void take_block(const Observation& seen) {
    const std::string block = "the block " + quoted(seen.text) + " of " + name_ + ":" +
                              std::to_string(block_lines_[seen.start]) + ", announced as one";
    is_announced_again_ = origins_[seen.start].where == block;
    if (!is_announced_again_) {
      displaced_ = std::exchange(origins_[seen.start], Origin{block, {}});
    }
  }

  std::string cut_text(const Observation& seen) {
    return "cut: at " + end_position(seen.other) + " by " + where(seen.other) +
           "; it was to end at " + end_position(seen.end);
  }

  std::string where(uint64_t start) {
    return origins_[start].where.empty() ? "what starts there" : origins_[start].where;
  }

  std::string name_;
  Schedule& schedule_;
  int64_t section_line_ = 0;
  std::map<uint64_t, Written> written_;
  std::map<uint64_t, int64_t> block_lines_;
  std::map<uint64_t, Origin> origins_;
  std::vector<std::pair<std::pair<uint64_t, uint64_t>, std::string>> lost_;
  Origin displaced_;
  bool is_announced_again_ = false;
  Origin parent_;
};

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

/// Whether the sidecar of the media file gives the name a value.
bool is_in_sidecar(const std::string& media, std::string_view name) {
  const FileDescriptor file = open_regular_file(AT_FDCWD, (media + ".metadata").c_str());
  const std::optional<std::string> content =
      file.is_open() ? read_content(file.get()) : std::nullopt;
  if (!content) {
    return false;
  }
  const SourceText sidecar(*content);
  for (int64_t line = 1; line <= sidecar.line_count(); ++line) {
    std::string_view text = sidecar.line(line);
    chomp(text);
    const auto pair = divide_name_equ_value_pair(text);
    if (pair && pair->name == name) {
      return true;
    }
  }
  return false;
}

std::string source_of(const ScheduleItem& item, std::string_view name) {
  if (!item.metadata.empty()) {
    return "play.log";
  }
  return is_in_sidecar(item.item, name) ? item.item + ".metadata" : item.item;
}

template <typename Row>
std::string row_text(const std::vector<Row>& rows, time_t t, bool is_announced) {
  const ListingHorizon horizon(current_time());
  for (const Row& row : rows) {
    if (row.start <= t && t < row.end) {
      const std::string times =
          time_or_none(row.start, "%F %R") + " to " + time_or_none(row.end, "%F %R");
      return horizon.shows(row) ? "the row of " + times + ", " + quoted(row.title)
                                : "none: the listing runs from today to 21 days ahead";
    }
  }
  return is_announced ? "none: it is shorter than five minutes, and its neighbours have no room"
                      : "none: it is not announced";
}

std::optional<time_t> time_of_moment(const std::string& moment, const std::string& type,
                                     time_t report_time, std::string& error) {
  if (moment.starts_with('@')) {
    time_t t = 0;
    const char* end = moment.data() + moment.size();
    const auto result = std::from_chars(moment.data() + 1, end, t);
    if (result.ec == std::errc() && result.ptr == end) {
      return t;
    }
  } else {
    std::tm broken_down{};
    long microseconds = 0;
    if (schedule_parse_time(moment, broken_down, microseconds)) {
      // The schedule's own unit must not be known before its gaps are filled.
      const time_t t =
          UnitClock(type, unit_of(type, report_time).start)
              .time_of(broken_down_to_schedule_seconds(find_schedule_type(type), broken_down));
      if (t != -1) {
        return t;
      }
      error = "the clocks skip that time in the unit of the report time";
      return std::nullopt;
    }
  }
  error = quoted(moment) + " is no time";
  return std::nullopt;
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
      append_line(out, name, quoted(value) + ", of " + source_of(item, name));
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

}  // namespace

std::optional<std::string> explain_moment(const std::string& file, const std::string& moment,
                                          const CheckOptions& options, std::string& error) {
  Report failure{};
  const std::optional<ScheduleSource> source = read_schedule_source(file, failure);
  if (!source) {
    error = failure.text;
    return std::nullopt;
  }
  const DiagnosticsRecord silence(DiagnosticsRecord::Printing::off);
  Schedule schedule;
  Story story(file, schedule);
  schedule.observe = [&](const Observation& seen) { story.look(seen); };
  read_schedule_content(schedule, source->content, file.c_str());
  if (schedule.unit_length == 0) {
    error = "a schedule of this type has no times";
    return std::nullopt;
  }
  const auto t = time_of_moment(moment, schedule.type, options.report_time, error);
  if (!t) {
    return std::nullopt;
  }
  complete_schedule(schedule);
  place_schedule(schedule, *t, source->path);
  schedule.observe = nullptr;
  arm_watchdog();

  const uint64_t position = time_to_schedule_seconds(schedule, *t);
  std::string out =
      time_or_none(*t, "%a %F %T %z") + ", " + story.position(position) + " of " + file + "\n";
  const ScheduleItem* airing = nullptr;
  UnitClock clock(schedule);
  for (const auto& [start, item] : schedule.schedule) {
    const time_t item_start = clock.time_of(start);
    if (item_start != -1 && item_start <= *t && *t < clock.time_of(item.end)) {
      airing = &item;
    }
  }
  if (airing != nullptr) {
    append_item(out, *airing, story, schedule, *t);
  } else {
    append_line(out, "airs", "nothing that the schedule knows of");
  }
  for (const std::string& lost : story.lost_at(position)) {
    append_line(out, "lost", lost);
  }
  cancel_watchdog();
  return out;
}
