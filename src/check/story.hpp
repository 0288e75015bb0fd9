#pragma once

#include <cstdint>
#include <ctime>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "schedule/pass_observer.hpp"
#include "schedule/schedule.hpp"
#include "schedule/schedule_reader.hpp"

/// Where an item that airs comes from, and what happened to it on the way.
struct Origin {
  std::string where;
  std::vector<std::string> events;
};

/// Follows a schedule from its file through the passes. Positions are schedule seconds.
class Story : public PassObserver {
 public:
  /// `name` is the name of the file, and `schedule` the record that is built from it.
  Story(std::string name, const Schedule& schedule) : name_(std::move(name)), schedule_(schedule) {}

  /// Takes a part of the file and what it did to the record.
  void add_part(const SchedulePart& part, const PartEffect& effect);

  const Origin& origin_at(uint64_t start) { return origins_[start]; }

  /// For each item that is written for the position but does not air then: its line and why.
  std::vector<std::string> lost_at(uint64_t position) const;

  /// A position as a schedule of the type writes it; an end at midnight is hour 24.
  std::string position(uint64_t seconds) const;
  std::string end_position(uint64_t seconds) const;

  void removing_reversed(const ScheduleItem& item) override;
  void clipping(const ScheduleItem& item, uint64_t new_end) override;
  void filling_gap(uint64_t start, uint64_t end) override;
  void announcing(const ScheduleBlock& block) override;
  void removing_for_block(const ScheduleItem& item, uint64_t block_start) override;
  void cutting_for_block(const ScheduleItem& item, uint64_t block_start) override;
  void moving_behind_block(const ScheduleItem& item, uint64_t block_end) override;
  void replacing_by_schedule(const ScheduleItem& item) override;
  void inserting_from_schedule(uint64_t start, uint64_t end) override;

 private:
  struct Written {
    int64_t line = 0;
    uint64_t end = 0;
  };
  struct Lost {
    uint64_t start;
    uint64_t end;
    std::string reason;
  };

  void take_item(const PartEffect& item, int64_t line);
  void add_lost(uint64_t start, uint64_t end, int64_t line, const std::string& reason);
  std::string cut_text(const ScheduleItem& item, uint64_t new_end);

  std::string name_;
  const Schedule& schedule_;
  std::map<uint64_t, Written> written_;  ///< items, by start
  std::map<uint64_t, int64_t> block_lines_;
  std::map<uint64_t, Origin> origins_;
  std::vector<Lost> lost_;
  Origin displaced_;  ///< origin of the item that the announced block replaces
  bool is_announced_again_ = false;
  Origin inserted_;  ///< origin of the items of the schedule that is patched in
};

/// What the schedule of that file airs at the moment (calendar time) and why, and what does not air
/// then. The schedule must be placed in the unit of the moment.
std::string text_of_moment(const Schedule& schedule, Story& story, time_t t,
                           const std::string& file);
