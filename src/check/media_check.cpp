#include "check/media_check.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <set>
#include <utility>

#include "check/path_check.hpp"
#include "metadata/item_metadata.hpp"
#include "platform/syntax/schedule_types.hpp"
#include "schedule/schedule_reader.hpp"

namespace {

constexpr uint64_t long_enough_for_a_programme = 600;  // seconds

/// A file, whatever path leads to it.
using FileId = std::pair<dev_t, ino_t>;

class MediaCheck {
 public:
  MediaCheck(const WrittenSchedule& written, std::vector<Report>& reports)
      : written_(written), reports_(reports) {}

  void check(const std::string& path) {
    struct stat status = {};
    if (stat(path.c_str(), &status) == 0) {
      schedules_above_.emplace_back(status.st_dev, status.st_ino);
    }
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
  }

 private:
  void add(Finding finding, Place place, std::string text) {
    reports_.push_back({finding, place, std::move(text), {}});
  }

  /// Whether the file can be looked at; what is wrong with it is said once, where it first stands.
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
    struct stat status = {};
    if (stat(path.c_str(), &status) != 0) {
      const bool is_missing = errno == ENOENT || errno == ENOTDIR;
      if (is_missing && comment_behind_path(path) != std::string::npos) {
        return false;  // its comment is told of already
      }
      add(is_missing ? Finding::missing_media : Finding::unreadable_media, place,
          quoted(path) + (is_missing ? " is not there" : ": " + std::string(std::strerror(errno))));
      return false;
    }
    if (!S_ISREG(status.st_mode)) {
      add(Finding::no_file, place, quoted(path) + " is no regular file");
      return false;
    }
    if (access(path.c_str(), R_OK) != 0) {
      add(Finding::unreadable_media, place, quoted(path) + ": " + std::strerror(errno));
      return false;
    }
    ScheduleItem item;
    item.item = path;
    const OpenedMetadata opened = open_item_metadata(item);
    if (find_schedule_type_of_mime_type(extract_item_metadata(opened.set).file_type) != nullptr) {
      check_subschedule(path, {status.st_dev, status.st_ino}, place);
    }
    return true;
  }

  void check_subschedule(const std::string& path, FileId id, Place place) {
    if (leads_back(path, id, schedules_above_)) {
      add(Finding::circular, place, "the schedule " + quoted(path) + " leads back to itself");
      return;
    }
    Schedule schedule;
    if (!read_schedule_file(schedule, path.c_str())) {
      add(Finding::bad_schedule, place, "the schedule " + quoted(path) + " cannot be read");
    } else if (find_schedule_type(schedule.type)->unit_length == 0) {
      add(Finding::bad_schedule, place,
          "the schedule " + quoted(path) + " has no unit, which ends the run");
    } else if (schedule.schedule.empty() && schedule.global_default.empty() &&
               schedule.defaults.own.empty()) {
      add(Finding::bad_schedule, place,
          "the schedule " + quoted(path) + " holds nothing that airs");
    }
  }

  /// Whether the schedule, or one that it names, is one of those above it.
  bool leads_back(const std::string& path, FileId id, std::vector<FileId>& above) {
    constexpr size_t most_levels = 11;
    if (std::ranges::find(above, id) != above.end()) {
      return true;
    }
    if (above.size() > most_levels || !seen_schedules_.insert(id).second) {
      return false;
    }
    Schedule schedule;
    bool is_circular = false;
    if (read_schedule_file(schedule, path.c_str())) {
      above.push_back(id);
      std::set<std::string> paths = {schedule.global_default};
      for (const auto& [start, item] : schedule.schedule) {
        paths.insert(item.item);
      }
      for (const std::string& inner : paths) {
        is_circular = is_circular || inner_leads_back(inner, above);
      }
      above.pop_back();
    }
    return is_circular;
  }

  bool inner_leads_back(const std::string& path, std::vector<FileId>& above) {
    struct stat status = {};
    if (stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) {
      return false;
    }
    ScheduleItem item;
    item.item = path;
    const OpenedMetadata opened = open_item_metadata(item);
    return find_schedule_type_of_mime_type(extract_item_metadata(opened.set).file_type) !=
               nullptr &&
           leads_back(path, {status.st_dev, status.st_ino}, above);
  }

  void check_announced(const WrittenSection& section) {
    ScheduleItem item;
    item.item = section.text_of(ScheduleKey::item);
    item.label = section.text_of(ScheduleKey::label);
    item.event_id = section.text_of(ScheduleKey::event_id);
    const auto [known, is_new] = metadata_.try_emplace(item.item);
    if (is_new) {
      known->second = extract_item_metadata(open_item_metadata(item).set);
    }
    const ItemMetadata& metadata = known->second;
    if (derive_announce(metadata, item) > 0 ||
        find_schedule_type_of_mime_type(metadata.file_type) != nullptr) {
      return;
    }
    const bool is_named = !item.label.empty() || !item.event_id.empty();
    const bool is_long = section.end - section.start >= long_enough_for_a_programme;
    if (metadata.announce == 0 && is_named) {
      add(Finding::not_announced, section.place,
          "not announced in spite of its " +
              std::string(item.label.empty() ? "event id" : "label") + ": 'schedule announce' of " +
              quoted(item.item) + " says so");
    } else if (metadata.announce < 0 && is_long) {
      add(Finding::not_announced, section.place,
          "not announced: it has no label and no event id, and " + quoted(item.item) +
              " is neither video nor audio but " + quoted(metadata.file_type));
    }
  }

  const WrittenSchedule& written_;
  std::vector<Report>& reports_;
  std::map<std::string, bool> known_;
  std::vector<FileId> schedules_above_;
  std::set<FileId> seen_schedules_;
  std::map<std::string, ItemMetadata> metadata_;
};

}  // namespace

void check_media(const WrittenSchedule& written, const std::string& path,
                 std::vector<Report>& reports) {
  MediaCheck(written, reports).check(path);
}
