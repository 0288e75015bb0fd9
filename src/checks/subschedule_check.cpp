#include "checks/checks.hpp"

#include <algorithm>
#include <iterator>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>

#include "checks/position_text.hpp"
#include "schedule/schedule_file_type.hpp"
#include "schedule/schedule_reader.hpp"
#include "schedule/schedule_time.hpp"
#include "schedule/subschedules.hpp"

namespace {

class SubscheduleCheck : public PassObserver {
 public:
  SubscheduleCheck(WrittenSchedule& written, FileFindings& found)
      : written_(written), found_(found) {}

  void check() {
    Schedule& schedule = written_.schedule;
    if (schedule.unit_length == 0) {
      return;  // this has its finding already, and a run ends before this point
    }
    // The blocks are announced already. Announcing them again could end the run if a schedule airs
    // nothing.
    schedule.blocks.clear();
    schedule.observer = this;
    patch_all_subschedules(schedule);
    schedule.observer = nullptr;
    check_filling();
    check_roots();
    if (is_last_level_reached_) {
      check_what_is_left();
    }
  }

  void replacing_by_schedule(const ScheduleItem& item) override {
    check_filling();
    filling_ = {item.item, item.start, item.end};
    if (root_at(item.start) == nullptr) {
      roots_[item.start] = {item.end, item.item, place_of(item.item, item.start), item.is_default};
    }
  }

  void inserting_from_schedule(uint64_t /*start*/, uint64_t end) override {
    filling_.filled_to = std::max(filling_.filled_to, end);
  }

  void wrapping_around() override { filling_.is_wrapped_around = true; }

  void reaching_last_level() override { is_last_level_reached_ = true; }

 private:
  /// An item of the file, written or default, that a schedule replaces.
  struct Root {
    uint64_t end;
    std::string path;
    Place place;
    bool is_default;
  };

  /// The item that a schedule replaces now.
  struct Filling {
    std::string path;
    uint64_t start = 0;
    uint64_t end = 0;
    uint64_t filled_to = 0;
    bool is_wrapped_around = false;  ///< the schedule's unit ended before the item
  };

  const Root* root_at(uint64_t position) const {
    const auto behind = roots_.upper_bound(position);
    if (behind == roots_.begin() || std::prev(behind)->second.end <= position) {
      return nullptr;
    }
    return &std::prev(behind)->second;
  }

  /// The place of the item that starts there, or of another item with that path if a block cut the
  /// item's beginning.
  Place place_of(const std::string& path, uint64_t start) const {
    const WrittenSection* item = written_.items.at(start);
    if (item != nullptr && item->text_of(ScheduleKey::item) == path) {
      return item->place_of(ScheduleKey::item);
    }
    const auto default_path = written_.default_paths.find(path);
    if (default_path != written_.default_paths.end()) {
      return default_path->second;
    }
    for (const WrittenSection& other : written_.items.all) {
      if (other.text_of(ScheduleKey::item) == path) {
        return other.place_of(ScheduleKey::item);
      }
    }
    return {};
  }

  void add(FindingKind kind, const Root& root, const std::string& text) {
    if (reported_.emplace(root.place.line, kind).second) {
      found_.add(kind, root.place, text);
    }
  }

  /// Nothing is lost if the unit ends together with the item. If the unit is the longer one,
  /// nothing is lost either: its other days fill the item.
  void check_filling() {
    const Root* root = root_at(filling_.start);
    const uint64_t rest = std::max(filling_.filled_to, filling_.start);
    if (root == nullptr || rest >= filling_.end || !is_of_this_unit(rest)) {
      return;
    }
    const ScheduleType& type = *find_schedule_type(written_.schedule.type);
    const std::string schedule = "the schedule " + quoted(filling_.path);
    const std::string end = written_end(filling_.end, type);
    if (filling_.filled_to == 0) {
      add(FindingKind::wraparound, *root,
          "nothing of " + schedule + " airs here, from " + written_position(filling_.start, type) +
              " to " + end + ": each of its items ends where it starts");
    } else if (filling_.is_wrapped_around) {
      add(FindingKind::wraparound, *root,
          schedule + " airs only to the end of its unit, " + written_end(rest, type) +
              ", and not to " + end + "; write an item for each of its units");
    }
  }

  /// An item whose schedule has nothing for its time leaves no trace in any document. For a default
  /// item this is no fault: it fills what is left.
  void check_roots() {
    std::set<int64_t> told_lines;
    for (const Finding& finding : found_.findings) {
      if (finding.kind == FindingKind::bad_schedule || finding.kind == FindingKind::wraparound) {
        told_lines.insert(finding.place.line);
      }
    }
    for (const auto& [start, root] : roots_) {
      const bool is_told = told_lines.contains(root.place.line);
      if (!root.is_default && !is_told && start < root.end && airs_nothing(start, root.end)) {
        check_empty_root(start, root);
      }
    }
  }

  void check_empty_root(uint64_t start, const Root& root) {
    const uint64_t shift = shift_of(start);
    if (shift >= seconds_per_day) {
      return;  // such a date has its finding already
    }
    const ScheduleType& type = *find_schedule_type(written_.schedule.type);
    add(FindingKind::empty_time, root,
        "nothing airs from " + written_position(start, type) + " to " +
            written_end(root.end, type) + ": " +
            (shift == 0 ? "the schedule " + quoted(root.path) +
                              " has no programme and no default item for that time"
                        : "a clock change moves this time"));
  }

  bool airs_nothing(uint64_t start, uint64_t end) const {
    const auto& items = written_.schedule.schedule;
    return std::all_of(items.lower_bound(start), items.lower_bound(end),
                       [](const auto& entry) { return entry.second.item.empty(); });
  }

  /// False for dates such as February 30, which have no time of their own.
  bool is_of_this_unit(uint64_t position) const { return shift_of(position) == 0; }

  /// How far the position is from the one that its time has in this unit: 0 as a rule, a day or
  /// more for such dates, an hour where the unit begins with a clock change.
  uint64_t shift_of(uint64_t position) const {
    UnitClock clock(written_.schedule);
    const time_t t = clock.time_of(position);
    const uint64_t real = t != -1 ? clock.schedule_seconds_of(t) : no_time;
    return std::max(real, position) - std::min(real, position);
  }

  void check_what_is_left() {
    for (const auto& [start, item] : written_.schedule.schedule) {
      const Root* root = root_at(start);
      if (root != nullptr && !item.is_block && is_schedule(item)) {
        add(FindingKind::too_deep, *root,
            "the schedule " + quoted(root->path) + " leads more than ten levels deep: " +
                quoted(item.item) + " is not read, and nothing in it airs");
      }
    }
  }

  bool is_schedule(const ScheduleItem& item) {
    const auto [known, is_new] = known_.try_emplace(item.item);
    if (is_new) {
      const auto schedule = std::make_unique<Schedule>();
      known->second =
          is_schedule_file(item.item) && read_schedule_file(*schedule, item.item.c_str());
    }
    return known->second;
  }

  WrittenSchedule& written_;
  FileFindings& found_;
  std::map<uint64_t, Root> roots_;  ///< by start
  std::set<std::pair<int64_t, FindingKind>> reported_;
  std::map<std::string, bool> known_;  ///< by path: whether the file is a schedule
  Filling filling_;
  bool is_last_level_reached_ = false;
};

}  // namespace

void check_subschedules(WrittenSchedule& written, FileFindings& found) {
  SubscheduleCheck(written, found).check();
}
