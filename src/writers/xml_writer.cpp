#include "writers/formats.hpp"

#include <optional>
#include <string>
#include <string_view>

#include "metadata/item_metadata.hpp"
#include "platform/syntax/text.hpp"
#include "platform/system/invariant.hpp"
#include "platform/system/output.hpp"
#include "schedule/run_options.hpp"
#include "writers/append.hpp"
#include "writers/item_walk.hpp"
#include "writers/xml_escape.hpp"

namespace {

const std::tm& local_time(UnitClock& clock, time_t t) {
  const std::tm* tm = clock.breakdown(t);
  INVARIANT_OF("void print_to_xml(Schedule&, time_t, time_t)", tm != nullptr, "tm != NULL");
  return *tm;
}

/// The text ` unix="T">date and time` of the last time. An item usually begins when the one before
/// it ends, so every second text is already known.
struct TimeText {
  std::optional<time_t> time;
  std::string text;
};

/// `<NAME unix="T">date and time</NAME>`; a time of -1 shows as the largest unsigned number.
void append_time(std::string& out, TimeText& last, UnitClock& clock, std::string_view begin_of_line,
                 std::string_view end_of_line, time_t t) {
  if (last.time != t) {
    last.text = " unix=\"";
    append_unsigned(last.text, static_cast<uint64_t>(t));
    append(last.text, "\">");
    append_date_and_time(last.text, local_time(clock, t));
    last.time = t;
  }
  append(out, begin_of_line, last.text, end_of_line);
}

void append_report_time(std::string& out, UnitClock& clock) {
  const std::tm& tm = local_time(clock, static_cast<time_t>(run_options.report_time));
  append(out, "  <reporttime unix=\"");
  append_unsigned(out, run_options.report_time);
  append(out, "\" gmt_offset_seconds=\"");
  append_signed(out, tm.tm_gmtoff);
  append(out, "\" timezone=\"");
  append_xml_escaped(out, tm.tm_zone);
  append(out, "\">");
  append_date_and_time(out, tm);
  append(out, "</reporttime>\n");
}

void append_head(std::string& out, const Schedule& schedule, UnitClock& clock, time_t window_start,
                 time_t window_end) {
  TimeText last_time;
  append(out, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<schedule>\n  <type>");
  append_xml_escaped(out, schedule.type);
  append(out, "</type>\n");
  append_report_time(out, clock);
  append_time(out, last_time, clock, "  <start", "</start>\n", window_start);
  append_time(out, last_time, clock, "  <end", "</end>\n", window_end);
  append(out, "  <list>\n");
}

void append_item(std::string& out, const ScheduleItem& item, bool announced) {
  append(out, "      <item default=\"", item.is_default ? "1" : "0", "\" announce=\"",
         announced ? "1" : "0", "\">");
  append_xml_escaped(out, item.item);
  append(out, "</item>\n      <name>");
  append_xml_escaped(out, file_name_of(item.item));
  append(out, "</name>\n      <label>", item.label, "</label>\n");
}

/// Only the value is escaped. The format prints group and name unchanged.
void append_entry(std::string& out, const MetadataSet& set, const metadata_v4_entry& entry) {
  append(out, "        <entry");
  if (const char* group = group_name(set, entry)) {
    append(out, " group=\"", group, "\"");
  }
  if (entry.name != nullptr) {
    append(out, " name=\"", entry.name, "\"");
  }
  append(out, ">");
  if (entry.value != nullptr) {
    append_xml_escaped(out, entry.value);
  }
  append(out, "</entry>\n");
}

struct XmlTexts {
  ItemMetadata metadata;
  std::string meta;  ///< the element of that name
};

XmlTexts xml_texts_of(const std::string& /*path*/, const MetadataSet& set) {
  XmlTexts texts{extract_item_metadata(set), {}};
  if (set != nullptr) {
    append(texts.meta, "      <meta>\n");
    for_each_entry(set,
                   [&](const metadata_v4_entry& entry) { append_entry(texts.meta, set, entry); });
    append(texts.meta, "      </meta>\n");
  }
  return texts;
}

}  // namespace

void print_to_xml(Schedule& schedule, time_t window_start, time_t window_end) {
  std::string out;
  UnitClock clock(schedule);
  append_head(out, schedule, clock, window_start, window_end);
  TimeText last_time;
  MetadataPerFile<XmlTexts> texts_per_file(xml_texts_of);
  const auto append_entry_of = [&](const ScheduleItem& item, time_t start) {
    const XmlTexts& texts = texts_per_file.of(item);
    append_time(out, last_time, clock, "    <entry>\n      <start", "</start>\n", start);
    append_time(out, last_time, clock, "      <end", "</end>\n", clock.time_of(item.end));
    append_item(out, item, derive_announce(texts.metadata, item) > 0);
    append(out, texts.meta, "    </entry>\n");
    write_output_when_large(out);
  };
  walk_items(schedule, clock, window_start, window_end, append_entry_of);
  append(out, "  </list>\n</schedule>\n");
  write_output(out);
}
