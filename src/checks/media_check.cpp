#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <map>
#include <string>
#include <string_view>

#include "checks/checks.hpp"
#include "checks/named_files.hpp"
#include "metadata/item_metadata.hpp"
#include "schedule/schedule_file_type.hpp"
#include "schedule/watchdog.hpp"

namespace {

constexpr uint64_t long_enough_for_a_programme = 600;  // seconds

/// What the checker keeps of a file.
struct KnownFile {
  bool is_readable = false;
  bool is_schedule = false;
  ItemMetadata metadata = {};
  bool has_title = false;  ///< for the listings; or it is reported that it has none
};

class MediaCheck {
 public:
  MediaCheck(FileId id, const MadeFormats& formats, FileFindings& found)
      : formats_(formats), found_(found), schedules_{.above = {id}} {}

  bool check(const WrittenSchedule& written) {
    for (const auto& [start, number] : written.items.by_start) {
      const WrittenSection& item = written.items.all[number];
      KnownFile& file =
          check_file(item.text_of(ScheduleKey::item), item.place_of(ScheduleKey::item));
      if (file.is_readable && !file.is_schedule) {
        check_announced(item, file.metadata);
      }
      if (formats_.has_listing() && !file.is_schedule) {
        check_listed(written, item, file);
      }
    }
    for (const auto& [path, place] : written.default_paths) {
      check_file(path, place);
    }
    const auto is_schedule = [](const auto& known) { return known.second.is_schedule; };
    return std::ranges::any_of(known_, is_schedule) && schedules_.can_be_patched_in;
  }

 private:
  /// Each problem is reported once, at the first place that names the file.
  KnownFile& check_file(const std::string& path, Place place) {
    const auto [known, is_new] = known_.try_emplace(path);
    if (is_new) {
      known->second = check_new_file(path, place);
    }
    return known->second;
  }

  KnownFile check_new_file(const std::string& path, Place place) {
    arm_watchdog();  // each file has its own time limit: there may be thousands
    struct stat status = {};
    if (stat(path.c_str(), &status) != 0) {
      report_no_file(path, place, errno);
      return {};
    }
    if (!S_ISREG(status.st_mode)) {
      found_.add(FindingKind::no_file, place, quoted(path) + " is not a regular file");
      return {};
    }
    if (access(path.c_str(), R_OK) != 0) {
      found_.add(FindingKind::unreadable_media, place, quoted(path) + ": " + std::strerror(errno));
      return {};
    }
    ScheduleItem item;
    item.item = path;
    const OpenedMetadata opened = open_item_metadata(item);
    check_metadata(path, opened.set, place, formats_, found_);
    const bool is_schedule = is_schedule_file(opened.set);
    if (is_schedule) {
      check_named_schedule(path, {status.st_dev, status.st_ino}, place, schedules_, found_);
    }
    return {true, is_schedule, extract_item_metadata(opened.set), has_listed_title(opened.set)};
  }

  void report_no_file(const std::string& path, Place place, int error) {
    if (error != ENOENT && error != ENOTDIR) {
      found_.add(FindingKind::unreadable_media, place, quoted(path) + ": " + std::strerror(error));
    } else if (!complaint_about_path(path)) {  // which has its finding already
      const std::string real = path_in_other_case(path, folder_names_);
      found_.add(FindingKind::missing_media, place,
                 quoted(path) + " does not exist" +
                     (real.empty() ? "" : "; write " + quoted(real) + ", the name of the file"));
    }
  }

  static ScheduleItem item_of(const WrittenSection& section) {
    ScheduleItem item;
    item.item = section.text_of(ScheduleKey::item);
    item.label = section.text_of(ScheduleKey::label);
    item.event_id = section.text_of(ScheduleKey::event_id);
    return item;
  }

  /// What the listings make of the item.
  void check_listed(const WrittenSchedule& written, const WrittenSection& section,
                    KnownFile& file) {
    const ScheduleItem item = item_of(section);
    if (derive_announce(file.metadata, item) < 1) {
      return;
    }
    check_listed_end(written, section, found_);
    if (file.is_readable && !file.has_title && !item.label.empty()) {
      found_.add(FindingKind::listed_title, section.place_of(ScheduleKey::label),
                 "the listings do not show labels, but titles, and the metadata of " +
                     quoted(item.item) + " have none: they show the file's name");
      file.has_title = true;
    }
  }

  void check_announced(const WrittenSection& section, const ItemMetadata& metadata) {
    const ScheduleItem item = item_of(section);
    if (derive_announce(metadata, item) > 0) {
      return;
    }
    const bool is_named = !item.label.empty() || !item.event_id.empty();
    const bool is_long = section.end - section.start >= long_enough_for_a_programme;
    if (metadata.announce == 0 && is_named) {
      found_.add(FindingKind::not_announced, section.place,
                 "not announced although it has " +
                     std::string(item.label.empty() ? "an event id" : "a label") +
                     ": 'schedule announce' in the metadata of " + quoted(item.item) + " says so");
    } else if (metadata.announce < 0 && is_long) {
      found_.add(FindingKind::not_announced, section.place,
                 "not announced: it has no label and no event id, and " + quoted(item.item) +
                     " is neither video nor audio but " + quoted(metadata.file_type));
    }
  }

  const MadeFormats& formats_;
  FileFindings& found_;
  std::map<std::string, KnownFile> known_;  ///< by path
  NamedSchedules schedules_;
  FolderNames folder_names_;
};

}  // namespace

bool check_media(const WrittenSchedule& written, FileId id, const MadeFormats& formats,
                 FileFindings& found) {
  return MediaCheck(id, formats, found).check(written);
}
