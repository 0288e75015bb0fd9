#include "check/media_check.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "check/path_check.hpp"
#include "check/value_check.hpp"
#include "metadata/item_metadata.hpp"
#include "platform/syntax/schedule_types.hpp"
#include "platform/system/messages.hpp"
#include "schedule/schedule_file_type.hpp"
#include "schedule/schedule_reader.hpp"
#include "schedule/subschedules.hpp"
#include "schedule/watchdog.hpp"

namespace {

constexpr uint64_t long_enough_for_a_programme = 600;  // seconds

/// Whether the name holds a character that ends an attribute's value or begins an element or a
/// broken reference.
bool has_markup(std::string_view name) {
  const auto is_markup = [&](const char& c) {
    const auto rest = name.substr(static_cast<size_t>(&c - name.data()));
    return c == '"' || c == '<' || (c == '&' && reference_at(rest).empty());
  };
  return std::ranges::any_of(name, is_markup);
}

/// Whether the text holds a character that XML documents may not hold, even escaped.
bool has_control_character(std::string_view text) {
  return std::ranges::any_of(text, [](char c) {
    return static_cast<unsigned char>(c) < ' ' && c != '\t' && c != '\n' && c != '\r';
  });
}

/// What the checker keeps of a file's metadata.
struct KnownMetadata {
  ItemMetadata metadata;
  bool is_schedule = false;
};

class MediaCheck {
 public:
  MediaCheck(const WrittenSchedule& written, std::vector<Finding>& findings)
      : written_(written), findings_(findings) {}

  bool check(FileId id) {
    schedules_above_.push_back(id);
    for (const auto& [start, number] : written_.item_numbers) {
      const WrittenSection& item = written_.items[number];
      const std::string media = item.text_of(ScheduleKey::item);
      if (check_file(media, item.place_of(ScheduleKey::item))) {
        check_announced(item);
      }
    }
    for (const auto& [media, place] : written_.default_paths) {
      check_file(media, place);
    }
    return names_schedules_ && can_be_patched_in_;
  }

 private:
  void add(FindingKind kind, Place place, std::string text) {
    findings_.push_back({kind, place, std::move(text), {}});
  }

  /// Whether the file can be read. Each problem is reported once, at the first place that names the
  /// file.
  bool check_file(const std::string& path, Place place) {
    const auto known = known_.find(path);
    if (known != known_.end()) {
      return known->second;
    }
    const bool is_sound = check_new_file(path, place);
    known_.emplace(path, is_sound);
    return is_sound;
  }

  bool check_new_file(const std::string& path, Place place) {
    arm_watchdog();  // each file has its own time limit: there may be thousands
    struct stat status = {};
    if (stat(path.c_str(), &status) != 0) {
      const bool is_missing = errno == ENOENT || errno == ENOTDIR;
      if (is_missing && comment_behind_path(path) != std::string::npos) {
        return false;  // the comment already has its finding
      }
      add(is_missing ? FindingKind::missing_media : FindingKind::unreadable_media, place,
          quoted(path) +
              (is_missing ? " does not exist" : ": " + std::string(std::strerror(errno))));
      return false;
    }
    if (!S_ISREG(status.st_mode)) {
      add(FindingKind::no_file, place, quoted(path) + " is not a regular file");
      return false;
    }
    if (access(path.c_str(), R_OK) != 0) {
      add(FindingKind::unreadable_media, place, quoted(path) + ": " + std::strerror(errno));
      return false;
    }
    ScheduleItem item;
    item.item = path;
    const OpenedMetadata opened = open_item_metadata(item);
    check_metadata(path, opened.set, place);
    if (is_schedule_file(opened.set)) {
      names_schedules_ = true;
      check_subschedule(path, {status.st_dev, status.st_ino}, place);
    }
    return true;
  }

  /// The XML document escapes only the values of metadata, and never control characters. Each
  /// problem is reported once for each file.
  void check_metadata(const std::string& path, const MetadataSet& set, Place place) {
    std::optional<std::string> with_markup;
    std::optional<std::string> with_control_character;
    for_each_entry(set, [&](const metadata_v4_entry& entry) {
      const char* group = group_name(set, entry);
      for (const char* name : {group, entry.name}) {
        if (!with_markup && name != nullptr && has_markup(name)) {
          with_markup = name;
        }
      }
      for (const char* text : {group, entry.name, entry.value}) {
        if (!with_control_character && text != nullptr && has_control_character(text)) {
          with_control_character = text == group || entry.name == nullptr ? text : entry.name;
        }
      }
    });
    if (with_markup) {
      add(FindingKind::markup, place,
          "the name " + quoted(*with_markup) + " in the metadata of " + quoted(path) +
              " goes into the XML document unescaped and makes it ill-formed");
    }
    if (with_control_character) {
      add(FindingKind::control_character, place,
          "a control character at " + quoted(*with_control_character) + " in the metadata of " +
              quoted(path) + " makes the XML document ill-formed");
    }
  }

  static bool read_subschedule(Schedule& schedule, const std::string& path) {
    const bool is_read = read_schedule_file(schedule, path.c_str());
    if (!is_read) {
      fail_run_for_shortage("Unable to open %s: %s", path.c_str());
    }
    return is_read;
  }

  void check_subschedule(const std::string& path, FileId id, Place place) {
    std::string without_unit;
    if (leads_back(path, id, schedules_above_, without_unit)) {
      can_be_patched_in_ = false;
      add(FindingKind::circular, place, "the schedule " + quoted(path) + " leads back to itself");
      return;
    }
    const auto schedule = std::make_unique<Schedule>();
    if (!read_subschedule(*schedule, path)) {
      add(FindingKind::bad_schedule, place, "the schedule " + quoted(path) + " cannot be read");
    } else if (find_schedule_type(schedule->type)->unit_length == 0) {
      add(FindingKind::bad_schedule, place,
          "the schedule " + quoted(path) + " has no unit, which ends the run");
    } else if (!without_unit.empty()) {
      add(FindingKind::bad_schedule, place,
          "the schedule " + quoted(path) + " leads to " + quoted(without_unit) +
              ", which has no unit and ends the run");
    } else if (schedule->schedule.empty() &&
               std::ranges::all_of(schedule->defaults, &std::string::empty)) {
      add(FindingKind::bad_schedule, place,
          "the schedule " + quoted(path) + " holds nothing that airs");
    }
  }

  /// The paths that the schedule in that file names; none if it cannot be read. If it has no unit,
  /// its path goes into `without_unit`.
  std::set<std::string> paths_in_schedule(const std::string& path, std::string& without_unit) {
    const auto schedule = std::make_unique<Schedule>();
    if (!read_subschedule(*schedule, path)) {
      return {};
    }
    if (schedule->unit_length == 0) {
      without_unit = path;
      can_be_patched_in_ = false;
    }
    std::set<std::string> paths(schedule->defaults.begin(), schedule->defaults.end());
    for (const auto& [start, item] : schedule->schedule) {
      paths.insert(item.item);
    }
    return paths;
  }

  /// Whether the schedule, or one that it names, is one of those above it. If one has no unit, its
  /// path goes into `without_unit`.
  bool leads_back(const std::string& path, FileId id, std::vector<FileId>& above,
                  std::string& without_unit) {
    // A schedule one level deeper stays unread, but what it names may lead back as well.
    constexpr size_t max_levels = most_subschedule_levels + 1;
    if (std::ranges::find(above, id) != above.end()) {
      return true;
    }
    const size_t level = above.size();
    const auto [known, is_new] = schedule_levels_.emplace(id, level);
    if (level > max_levels || (!is_new && known->second <= level)) {
      return false;
    }
    known->second = level;  // nearer than before: more levels below it count
    above.push_back(id);
    bool is_circular = false;
    for (const std::string& inner : paths_in_schedule(path, without_unit)) {
      is_circular = is_circular || inner_leads_back(inner, above, without_unit);
    }
    above.pop_back();
    return is_circular;
  }

  bool inner_leads_back(const std::string& path, std::vector<FileId>& above,
                        std::string& without_unit) {
    struct stat status = {};
    if (stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) {
      return false;
    }
    return is_schedule_file(path) &&
           leads_back(path, {status.st_dev, status.st_ino}, above, without_unit);
  }

  void check_announced(const WrittenSection& section) {
    ScheduleItem item;
    item.item = section.text_of(ScheduleKey::item);
    item.label = section.text_of(ScheduleKey::label);
    item.event_id = section.text_of(ScheduleKey::event_id);
    const auto [known, is_new] = metadata_.try_emplace(item.item);
    if (is_new) {
      const OpenedMetadata opened = open_item_metadata(item);
      known->second = {extract_item_metadata(opened.set), is_schedule_file(opened.set)};
    }
    const auto& [metadata, is_schedule] = known->second;
    if (derive_announce(metadata, item) > 0 || is_schedule) {
      return;
    }
    const bool is_named = !item.label.empty() || !item.event_id.empty();
    const bool is_long = section.end - section.start >= long_enough_for_a_programme;
    if (metadata.announce == 0 && is_named) {
      add(FindingKind::not_announced, section.place,
          "not announced although it has " +
              std::string(item.label.empty() ? "an event id" : "a label") +
              ": 'schedule announce' in the metadata of " + quoted(item.item) + " says so");
    } else if (metadata.announce < 0 && is_long) {
      add(FindingKind::not_announced, section.place,
          "not announced: it has no label and no event id, and " + quoted(item.item) +
              " is neither video nor audio but " + quoted(metadata.file_type));
    }
  }

  const WrittenSchedule& written_;
  std::vector<Finding>& findings_;
  std::map<std::string, bool> known_;
  std::vector<FileId> schedules_above_;
  std::map<FileId, size_t> schedule_levels_;  ///< with the level at which each was met
  bool names_schedules_ = false;
  bool can_be_patched_in_ = true;
  std::map<std::string, KnownMetadata> metadata_;
};

}  // namespace

bool check_media(const WrittenSchedule& written, FileId id, std::vector<Finding>& findings) {
  return MediaCheck(written, findings).check(id);
}
