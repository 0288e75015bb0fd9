#include "station/guards.hpp"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>
#include <string_view>

#include "checks/schedule_check.hpp"
#include "metadata/item_metadata.hpp"
#include "metadata/place_schedule.hpp"
#include "platform/system/file.hpp"
#include "platform/system/messages.hpp"
#include "platform/time/known_zone.hpp"
#include "schedule/schedule_time.hpp"
#include "station/channel_schedule.hpp"
#include "station/fingerprint.hpp"
#include "writers/item_walk.hpp"

namespace {

bool counts(const Finding& finding, CheckLevel level) {
  const Severity severity = info_of(finding.kind).severity;
  return severity == Severity::error ||
         (level == CheckLevel::warnings && severity == Severity::warning);
}

/// The finding as the checker prints it, without its notes. A name in the file may have any length,
/// so the middle of a long line is left out.
std::string line_of(const std::string& file, const Finding& finding) {
  constexpr size_t most_at_each_end = 200;
  std::string text = text_of({file, {finding}}, 1);
  text.resize(std::min(text.size(), text.find('\n')));
  if (text.size() > 2 * most_at_each_end) {
    const auto continues_character = [&](size_t place) {
      return (static_cast<unsigned char>(text[place]) & 0xc0U) == 0x80;
    };
    size_t begin = most_at_each_end;
    size_t end = text.size() - most_at_each_end;
    for (; continues_character(begin); --begin) {
    }
    for (; end < text.size() && continues_character(end); ++end) {
    }
    text.replace(begin, end - begin, " ... ");
  }
  return text;
}

}  // namespace

std::string complaint_about_zone(const StationChannel& channel) {
  return is_known_zone(channel.zone) ? std::string()
                                     : "the machine knows no zone '" + channel.zone + "'";
}

std::string complaint_of_checker(const std::string& path, CheckLevel level,
                                 const std::vector<std::string>& formats, time_t now) {
  if (level == CheckLevel::off) {
    return {};
  }
  FileFindings found;
  CheckOptions options{.media = false, .report_time = now};
  std::string names;
  for (const std::string& format : formats) {
    names += (names.empty() ? "" : ",") + format;
  }
  read_made_formats(names, options.formats);
  if (!check_schedule_file(path, options, found)) {
    return "the checker: " + line_of(path, found.findings.front());
  }
  const Finding* first = nullptr;
  size_t number = 0;
  for (const Finding& finding : found.findings) {
    if (counts(finding, level)) {
      first = first == nullptr ? &finding : first;
      ++number;
    }
  }
  if (first == nullptr) {
    return {};
  }
  const std::string kinds = level == CheckLevel::warnings ? "errors or warnings" : "errors";
  return "the checker finds " + kinds + ": " + std::to_string(number) +
         "; the first: " + line_of(path, *first);
}

std::string complaint_about_items(uint64_t items, uint32_t min_items) {
  return items >= min_items ? std::string()
                            : "announced items: " + std::to_string(items) +
                                  ", fewer than min-items = " + std::to_string(min_items);
}

std::string complaint_about_share(uint64_t count, uint64_t last, uint32_t min_percent,
                                  const char* what, const char* published) {
  return count * 100 >= last * min_percent
             ? std::string()
             : std::string(what) + ": " + std::to_string(count) + ", fewer than " +
                   std::to_string(min_percent) + " percent of the " + std::to_string(last) + " " +
                   published;
}

uint64_t count_announced(const Schedule& schedule) {
  UnitClock clock(schedule);
  MetadataPerFile<ItemMetadata> metadata(
      [](const std::string&, const MetadataSet& set) { return extract_item_metadata(set); });
  uint64_t number = 0;
  walk_items(schedule, clock, schedule.unit_start, schedule.unit_end,
             [&](const ScheduleItem& item, time_t) {
               number += derive_announce(metadata.of(item), item) > 0 ? 1U : 0U;
             });
  return number;
}

std::optional<uint64_t> count_announced_at(const std::string& path, time_t t) {
  const auto schedule = std::make_unique<Schedule>();
  std::string error;
  if (!read_channel_schedule(*schedule, path, error)) {
    return std::nullopt;
  }
  place_schedule(*schedule, t, path);
  return count_announced(*schedule);
}

std::optional<uint64_t> fingerprint_of_file(const std::string& path) {
  const FileDescriptor file = open_regular_file(AT_FDCWD, path.c_str(), Links::refused);
  if (!file.is_open()) {
    fail_run_for_shortage("'%s' cannot be read: %s", path.c_str());
    return std::nullopt;
  }
  Fingerprint fingerprint;
  std::string buffer(64UL * 1024, '\0');
  for (;;) {
    const auto length = read_some(file.get(), buffer.data(), buffer.size());
    if (!length) {
      print_warning(Warning::cut_short, "WARNING: Schedule file %s, cannot be read further, %s\n",
                    path.c_str(), std::strerror(errno));
      return std::nullopt;
    }
    if (*length == 0) {
      return fingerprint.value();
    }
    fingerprint.add(std::string_view(buffer).substr(0, *length));
  }
}

std::string complaint_about_change(const std::string& path, std::optional<uint64_t> before) {
  return fingerprint_of_file(path) == before ? std::string()
                                             : "'" + path + "' was changed during the run";
}
