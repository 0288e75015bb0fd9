#include "checks/checks.hpp"

#include <set>
#include <string>

#include "metadata/place_schedule.hpp"
#include "schedule/complete_schedule.hpp"

namespace {

std::string length_text(uint64_t seconds) {
  constexpr uint64_t hour = 3600;
  constexpr uint64_t minute = 60;
  if (seconds % hour == 0) {
    return std::to_string(seconds / hour) + (seconds == hour ? " hour" : " hours");
  }
  if (seconds % minute == 0) {
    return std::to_string(seconds / minute) + (seconds == minute ? " minute" : " minutes");
  }
  return std::to_string(seconds) + (seconds == 1 ? " second" : " seconds");
}

class PassCheck : public PassObserver {
 public:
  PassCheck(WrittenSchedule& written, FileFindings& found) : written_(written), found_(found) {}

  void check(time_t report_time) {
    Schedule& schedule = written_.schedule;
    schedule.observer = this;
    complete_schedule(schedule);
    if (schedule.unit_length > 0) {
      place_in_unit(schedule, report_time, {});
    }
    schedule.observer = nullptr;
  }

  void clipping(const ScheduleItem& item, uint64_t new_end) override {
    const WrittenSection* section = sound_section(item);
    if (section != nullptr && !section->is_noon_meant) {
      const WrittenSection& next = *written_.items.at(new_end);
      found_.add(FindingKind::overlap, section->place,
                 cut_text(item, new_end) + "item at line " + std::to_string(next.place.line),
                 {{next.place, "the item is here"}});
    }
  }

  void announcing(const ScheduleBlock& block) override {
    announced_.insert(block.start);
    block_ = block.start;
  }

  void removing_for_block(const ScheduleItem& item, uint64_t block_start) override {
    const WrittenSection* section = announced_block(item);
    if (section != nullptr && !section->is_broken) {
      found_.add(FindingKind::block_cuts, section->place,
                 "another announced block takes the place of this one",
                 {{written_.blocks.at(block_start)->place, "the other is here"}});
    }
  }

  void cutting_for_block(const ScheduleItem& item, uint64_t block_start) override {
    if (const WrittenSection* section = sound_section(item)) {
      const WrittenSection& block = *written_.blocks.at(block_start);
      found_.add(FindingKind::block_cuts, section->place,
                 cut_text(item, block_start) + "block " + quoted(block.text_of(ScheduleKey::block)),
                 {{block.place, "the block is here"}});
    }
  }

  void moving_behind_block(const ScheduleItem& item, uint64_t block_end) override {
    if (const WrittenSection* section = sound_section(item)) {
      found_.add(FindingKind::block_cuts, section->place,
                 "starts " + length_text(block_end - item.start) +
                     " later, after the announced block that it overlaps");
    }
  }

 private:
  static std::string cut_text(const ScheduleItem& item, uint64_t new_end) {
    return "cut from " + length_text(item.end - item.start) + " to " +
           length_text(new_end - item.start) + " by the ";
  }

  /// The section of an announced block that is in the way of a later one. Null if the item is not
  /// such a block.
  const WrittenSection* announced_block(const ScheduleItem& item) const {
    const bool is_block = announced_.contains(item.start) && item.start != block_;
    return is_block ? written_.blocks.at(item.start) : nullptr;
  }

  /// The section of the item, or null if it gets no findings.
  const WrittenSection* sound_section(const ScheduleItem& item) const {
    const WrittenSection* block = announced_block(item);
    const WrittenSection* section = block != nullptr ? block : written_.items.at(item.start);
    return section != nullptr && !section->is_broken ? section : nullptr;
  }

  WrittenSchedule& written_;
  FileFindings& found_;
  std::set<uint64_t> announced_;  ///< blocks, by start
  uint64_t block_ = 0;            ///< start of the block that is announced now
};

}  // namespace

void check_passes(WrittenSchedule& written, time_t report_time, FileFindings& found) {
  PassCheck(written, found).check(report_time);
}
