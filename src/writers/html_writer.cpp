#include "writers/formats.hpp"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "metadata/item_metadata.hpp"
#include "platform/syntax/text.hpp"
#include "platform/system/invariant.hpp"
#include "platform/system/output.hpp"
#include "platform/time/calendar.hpp"
#include "schedule/run_options.hpp"
#include "writers/append.hpp"
#include "writers/html_day_table.hpp"
#include "writers/html_page.hpp"
#include "writers/item_walk.hpp"
#include "writers/time_text.hpp"
#include "writers/xml_escape.hpp"

namespace {

/// Endings that are removed when a file name is shown as a title. All are four characters long.
constexpr std::array<std::string_view, 3> video_endings = {".mp4", ".mov", ".avi"};

std::tm local_time(UnitClock& clock, time_t t, const char* expression) {
  const std::tm* tm = clock.breakdown(t);
  INVARIANT_OF("void print_to_html(Schedule&, time_t, time_t)", tm != nullptr, expression);
  return *tm;
}

void append_head(std::string& out, const Schedule& schedule, UnitClock& clock) {
  const std::tm tm = local_time(clock, static_cast<time_t>(run_options.report_time), "tm != NULL");
  append(out, page_opening);
  append_xml_escaped(out, schedule.type);
  append(out, " schedule (as of ");
  append_date_and_time(out, tm);
  append(out, " ", tm.tm_zone, ")", page_style_opening);
  for (const StyleRule& rule : page_style()) {
    append(out, "    ", rule.selector, " {\n");
    for (const std::string_view declaration : rule.declarations) {
      append(out, "      ", declaration, "\n");
    }
    append(out, "    }\n");
  }
  append(out, page_script_opening);
  for (const std::string_view line : jump_script(schedule.type)) {
    append(out, line, "\n");
  }
  append(out, page_script_closing);
}

/// "Sunday, March 3rd". `after_day_name` follows the name of the day.
void append_heading_date(std::string& out, UnitClock& clock, time_t t,
                         std::string_view after_day_name) {
  const std::tm tm = local_time(clock, t, "tm != NULL");
  append(out, "<span class=\"neversplit\">", day_name(tm.tm_wday), after_day_name,
         month_name(tm.tm_mon), " ");
  append_signed(out, tm.tm_mday);
  append(out, ordinal_suffix(tm.tm_mday), "</span>");
}

void append_heading(std::string& out, const Schedule& schedule, UnitClock& clock,
                    time_t window_start, time_t window_end) {
  append(out, "    <h1 class=\"schedhead\"><span class=\"schedheadtype neversplit\">");
  append_xml_escaped(out, upper_case(schedule.type));
  append(out, " SCHEDULE</span><br><span class=\"schedheaddate\">\n");
  append_heading_date(out, clock, window_start, " ");
  append(out, " - ");
  append_heading_date(out, clock, window_end, ", ");
  append(out, "</span></h1>\n<div class=\"schedheadbtmborder\"></div>");
}

/// The time of a row on a 12-hour clock.
void append_clock(std::string& out, const std::tm& tm, bool with_seconds) {
  append_signed(out, (tm.tm_hour + 11) % 12 + 1);
  append(out, ":");
  append_padded(out, static_cast<unsigned>(tm.tm_min), 2);
  append(out, with_seconds ? "" : " ", "<span class=\"schedampm\">");
  if (with_seconds) {
    append(out, ":");
    append_padded(out, static_cast<unsigned>(tm.tm_sec), 2);
    append(out, " ");
  }
  append(out, tm.tm_hour > 11 ? "pm" : "am", "</span>");
}

std::string_view without_video_ending(std::string_view name) {
  if (name.size() < 4) {
    return name;
  }
  const std::string ending = lower_case(name.substr(name.size() - 4));
  const bool is_video = std::ranges::find(video_endings, ending) != video_endings.end();
  return is_video ? name.substr(0, name.size() - 4) : name;
}

/// The name that viewers know the item by: its title, programme, label or file name, and its
/// episode.
std::string display_name(const ScheduleItem& item, const ItemMetadata& metadata) {
  std::string name;
  for (const std::string& candidate : {metadata.title, metadata.program, item.label}) {
    if (!candidate.empty()) {
      name = candidate;
      break;
    }
  }
  if (name.empty()) {
    name = without_video_ending(file_name_of(item.item));
  }
  if (!metadata.episode.empty()) {
    name += ": " + metadata.episode;
  }
  return name;
}

void append_text_cell(std::string& out, const ScheduleItem& item, const ItemMetadata& metadata) {
  append(out, text_cell_opening);
  // Viewers see the part of the rating after the system: "TV-PG" of "US/TV-PG".
  const std::string_view rating = file_name_of(metadata.rating);
  if (!rating.empty()) {
    append(out, "<span class=\"schedrating\">");
    append_xml_escaped(out, rating);
    append(out, "</span>");
  }
  append(out, "<span class=\"schedprogram\" id=\"program\">");
  append_xml_escaped(out, display_name(item, metadata));
  append(out, "</span>");
  const std::string& summary = metadata.summary.empty() ? metadata.description : metadata.summary;
  if (!summary.empty()) {
    append(out, "<br><div class=\"schedsummary\">");
    append_xml_escaped(out, summary);
    append(out, "</div>");
  }
  append(out, cell_closing);
}

/// Whether rows show seconds. An item that begins and ends in the same minute shows them, and so
/// does the next row, so that the two can be told apart.
struct SecondsRule {
  bool is_set = false;

  bool with_seconds(const std::tm& start, const std::tm& end) {
    if (start.tm_hour == end.tm_hour && start.tm_min == end.tm_min) {
      is_set = true;
      return true;
    }
    const bool was_set = is_set;
    is_set = false;
    return was_set;
  }
};

void append_row(std::string& out, const ScheduleItem& item, const ItemMetadata& metadata,
                const std::tm& start, const std::tm& end, SecondsRule& seconds) {
  append(out, "      <tr>\n", time_cell_opening);
  append_clock(out, start, seconds.with_seconds(start, end));
  append(out, cell_closing);
  append_text_cell(out, item, metadata);
  append(out, "      </tr>\n");
}

/// The local start of the day of a time. It is computed once for each day.
class DayStart {
 public:
  time_t of(time_t t, const std::tm& tm) {
    if (tm.tm_year != year_ || tm.tm_yday != day_of_year_) {
      year_ = tm.tm_year;
      day_of_year_ = tm.tm_yday;
      start_ = calendar_start_of_day(t);
    }
    return start_;
  }

 private:
  int year_ = 0;
  int day_of_year_ = -1;
  time_t start_ = 0;
};

void append_days(std::string& out, const Schedule& schedule, UnitClock& clock, time_t window_start,
                 time_t window_end) {
  bool is_table_open = false;
  time_t current_day = 0;
  DayStart day_start;
  SecondsRule seconds;
  MetadataPerFile<ItemMetadata> metadata_per_file(
      [](const std::string&, const MetadataSet& set) { return extract_item_metadata(set); });
  walk_items(schedule, clock, window_start, window_end, [&](const ScheduleItem& item, time_t t) {
    const std::tm start = local_time(clock, t, "ptm != NULL");
    const time_t day = day_start.of(t, start);
    if (day != current_day) {
      append(out, is_table_open ? "    </table>\n" : "");
      append_day_table_opening(out, schedule, day);
    }
    const ItemMetadata& metadata = metadata_per_file.of(item);
    if (derive_announce(metadata, item) >= 1) {
      const std::tm end = local_time(clock, clock.time_of(item.end), "ptm != NULL");
      append_row(out, item, metadata, start, end, seconds);
    }
    current_day = day;
    is_table_open = true;
    write_output_when_large(out);
  });
  append(out, is_table_open ? "    </table>\n" : "");
}

}  // namespace

void print_to_html(Schedule& schedule, time_t window_start, time_t window_end) {
  std::string out;
  UnitClock clock(schedule);
  append_head(out, schedule, clock);
  append_heading(out, schedule, clock, window_start, window_end);
  append_days(out, schedule, clock, window_start, window_end);
  append(out, page_closing);
  write_output(out);
}
