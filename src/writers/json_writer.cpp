#include "writers/formats.hpp"

#include <algorithm>
#include <array>
#include <cstdio>
#include <deque>
#include <stdexcept>
#include <string>
#include <string_view>

#include "metadata/item_metadata.hpp"
#include "platform/syntax/json_text.hpp"
#include "platform/syntax/text.hpp"
#include "platform/system/output.hpp"
#include "schedule/run_options.hpp"
#include "writers/append.hpp"
#include "writers/item_walk.hpp"
#include "writers/metadata_map.hpp"
#include "writers/time_text.hpp"

// All members are written in ascending order of their keys.

namespace {

/// Length of the mount point that every media path begins with, "/mnt/main/".
constexpr size_t mount_point_length = 10;

/// A time as a JSON number, printed as by "%.17g".
template <typename Seconds>
void append_seconds(std::string& out, Seconds seconds) {
  constexpr auto largest_exact = static_cast<Seconds>(1) << 53U;
  if (seconds<largest_exact&& static_cast<int64_t>(seconds)> - int64_t{largest_exact}) {
    append_signed(out, static_cast<int64_t>(seconds));
    return;
  }
  std::array<char, 40> text{};
  const int length = std::snprintf(text.data(), text.size(), "%.17g", static_cast<double>(seconds));
  out.append(text.data(), static_cast<size_t>(length));
}

/// `tm` is the local time of t, or null.
void append_json_time(std::string& out, time_t t, const std::tm* tm) {
  append(out, "{\"iso8601\": \"");
  if (tm != nullptr) {
    append_iso8601(out, *tm);
  }
  append(out, "\", \"unix\": ");
  append_seconds(out, t);
  append(out, "}");
}

void append_report_time(std::string& out) {
  const auto report_time = static_cast<time_t>(run_options.report_time);
  std::tm tm{};
  const bool is_known = localtime_r(&report_time, &tm) != nullptr;
  append(out, "{\"gmt_offset_second\": \"");
  append_signed(out, tm.tm_gmtoff);
  append(out, "\", \"time\": ");
  append_json_string(out, time_to_iso8601(report_time));
  append(out, ", \"timezone\": ");
  append_json_string(out, is_known ? tm.tm_zone : "");
  append(out, ", \"unix\": ");
  append_seconds(out, run_options.report_time);
  append(out, "}");
}

/// A text that the document cannot do without. If it is missing, the run ends: no document is
/// better than a wrong one. The message is the one of the C++ library for a text from a null
/// pointer, because such runs have always ended with it.
const char* required(const char* text) {
  if (text == nullptr) {
    throw std::logic_error("basic_string::_M_construct null not valid");
  }
  return text;
}

struct JsonTexts {
  ItemMetadata metadata;
  std::string object;  ///< the metadata as a JSON object
};

JsonTexts json_texts_of(const std::string& /*path*/, const MetadataSet& set) {
  JsonTexts texts{extract_item_metadata(set), {}};
  std::string& out = texts.object;
  MetadataCollector collector;
  for_each_entry(set, [&](const metadata_v4_entry& entry) {
    collector.add(required(entry.name), required(entry.value));
  });
  append(out, "{");
  const char* separator = "";
  for (const auto& [name, value] : collector.map) {
    append(out, separator);
    append_json_string(out, name);
    append(out, ": ");
    append_json_string(out, value);
    separator = ", ";
  }
  append(out, "}");
  return texts;
}

struct GatheredItem {
  int32_t announce = 0;
  std::string_view object;  ///< the metadata, see JsonTexts
};

/// The metadata of all items that are printed. It is read before anything is printed, because it
/// may end the run, and it is read once.
class GatheredTexts {
 public:
  void gather(const ScheduleItem& item) {
    if (per_file_.remembered(item) != nullptr) {
      return;
    }
    const JsonTexts& texts = per_file_.of(item);
    if (per_file_.remembered(item) == nullptr) {
      own_.push_back({item.start, derive_announce(texts.metadata, item), texts.object});
    }
  }

  /// Of an item that was gathered. The items must come in the order in which they were gathered.
  GatheredItem next(const ScheduleItem& item) {
    if (next_own_ < own_.size() && own_[next_own_].start == item.start) {
      const OwnTexts& own = own_[next_own_++];
      return {own.announce, own.object};
    }
    const JsonTexts& texts = *per_file_.remembered(item);
    return {derive_announce(texts.metadata, item), texts.object};
  }

 private:
  /// Of an item whose texts are not remembered with its file.
  struct OwnTexts {
    uint64_t start;
    int32_t announce;
    std::string object;
  };

  MetadataPerFile<JsonTexts> per_file_{json_texts_of};
  std::deque<OwnTexts> own_;
  size_t next_own_ = 0;
};

void append_item(std::string& out, UnitClock& clock, const ScheduleItem& item, time_t start,
                 const GatheredItem& gathered) {
  const std::string_view path = item.item;
  append(out, "{\"announce\": ");
  append_signed(out, gathered.announce);
  append(out, ", \"default\": ", item.is_default ? "true" : "false", ", \"end_unix\": ");
  const time_t end = clock.time_of(item.end);
  append_json_time(out, end, clock.breakdown(end));
  append(out, ", \"label\": ");
  append_json_string(out, item.label);
  append(out, ", \"metadata\": ", gathered.object, ", \"name\": ");
  append_json_string(out, file_name_of(path));
  append(out, ", \"opath\": ");
  append_json_string(out, path.substr(std::min(mount_point_length, path.size())));
  append(out, ", \"start_unix\": ");
  append_json_time(out, start, clock.breakdown(start));
  append(out, "}");
}

}  // namespace

std::string json_time(time_t t) {
  std::string out;
  std::tm tm{};
  append_json_time(out, t, localtime_r(&t, &tm));
  return out;
}

void print_to_json(Schedule& schedule, time_t window_start, time_t window_end) {
  UnitClock clock(schedule);
  GatheredTexts texts;
  walk_items(schedule, clock, window_start, window_end,
             [&](const ScheduleItem& item, time_t) { texts.gather(item); });

  std::string out;
  append(out, "{\"end_unix\": ", json_time(window_end), ", \"items\": [");
  const char* separator = "";
  walk_items(schedule, clock, window_start, window_end,
             [&](const ScheduleItem& item, time_t start) {
               append(out, separator);
               append_item(out, clock, item, start, texts.next(item));
               separator = ", ";
               write_output_when_large(out);
             });
  append(out, "], \"reporttime\": ");
  append_report_time(out);
  append(out, ", \"start_unix\": ", json_time(window_start), "}\n");
  write_output(out);
}
