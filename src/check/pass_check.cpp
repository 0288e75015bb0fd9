#include "check/pass_check.hpp"

#include <map>
#include <set>
#include <string>
#include <utility>

#include "check/time_advice.hpp"
#include "metadata/place_schedule.hpp"
#include "platform/syntax/text.hpp"
#include "platform/time/local_stretches.hpp"
#include "platform/time/local_text.hpp"
#include "platform/time/written_time.hpp"
#include "schedule/complete_schedule.hpp"
#include "schedule/schedule_time.hpp"
#include "schedule/unit_times.hpp"

namespace {

std::string length_text(uint64_t seconds) {
  if (seconds % 3600 == 0) {
    return std::to_string(seconds / 3600) + (seconds == 3600 ? " hour" : " hours");
  }
  if (seconds % 60 == 0) {
    return std::to_string(seconds / 60) + (seconds == 60 ? " minute" : " minutes");
  }
  return std::to_string(seconds) + (seconds == 1 ? " second" : " seconds");
}

class PassCheck : public PassObserver {
 public:
  PassCheck(WrittenSchedule& written, std::vector<Finding>& findings)
      : written_(written), findings_(findings), type_(*find_schedule_type(written.schedule.type)) {}

  void check(time_t report_time) {
    for (const auto& [start, number] : written_.item_numbers) {
      check_span(written_.items[number], "programme");
    }
    for (const auto& [start, number] : written_.block_numbers) {
      check_span(written_.blocks[number], "block");
    }
    check_membership();
    Schedule& schedule = written_.schedule;
    schedule.observer = this;
    complete_schedule(schedule);
    if (type_.unit_length > 0) {
      check_clock_changes(report_time);
      place_in_unit(schedule, report_time, {});
    }
    schedule.observer = nullptr;
  }

  void clipping(const ScheduleItem& item, uint64_t new_end) override {
    if (const WrittenSection* section = sound_section(item)) {
      const WrittenSection& next = *written_.item_at(new_end);
      add(FindingKind::overlap, section->place,
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
      add(FindingKind::block_cuts, section->place,
          "another announced block takes the place of this one",
          {{written_.block_at(block_start)->place, "the other is here"}});
    }
  }

  void cutting_for_block(const ScheduleItem& item, uint64_t block_start) override {
    if (const WrittenSection* section = sound_section(item)) {
      const WrittenSection& block = *written_.block_at(block_start);
      add(FindingKind::block_cuts, section->place,
          cut_text(item, block_start) + "block " + quoted(block.text_of(ScheduleKey::block)),
          {{block.place, "the block is here"}});
    }
  }

  void moving_behind_block(const ScheduleItem& item, uint64_t block_end) override {
    if (const WrittenSection* section = sound_section(item)) {
      add(FindingKind::block_cuts, section->place,
          "starts " + length_text(block_end - item.start) +
              " later, after the announced block that it overlaps");
    }
  }

 private:
  static std::string cut_text(const ScheduleItem& item, uint64_t new_end) {
    return "cut from " + length_text(item.end - item.start) + " to " +
           length_text(new_end - item.start) + " by the ";
  }

  void add(FindingKind kind, Place place, std::string text, std::vector<Note> notes = {}) {
    findings_.push_back({kind, place, std::move(text), std::move(notes)});
  }

  void check_span(const WrittenSection& section, const std::string& what) {
    if (section.is_broken) {
      return;
    }
    const auto start = section.start;
    const auto end = section.end;
    const std::string unit = "the schedule's " + unit_text(type_);
    if (type_.unit_length > 0 && start >= type_.unit_length) {
      add(FindingKind::outside_unit, section.place_of(ScheduleKey::start),
          "the " + what + " starts outside " + unit);
    } else if (as_signed(start) > as_signed(end)) {
      add(FindingKind::reversed, section.place_of(ScheduleKey::end),
          "the " + what + " ends before it starts; " + advice_on_reversed(section));
    } else if (start == end) {
      add(FindingKind::no_length, section.place_of(ScheduleKey::end),
          "the " + what + " ends at the same time as it starts");
    } else if (type_.unit_length > 0 && end > type_.unit_length) {
      add(FindingKind::outside_unit, section.place_of(ScheduleKey::end),
          "the " + what + " ends after " + unit);
    }
  }

  /// How to write a programme that runs past midnight or past the end of the unit, or whose end has
  /// no day.
  std::string advice_on_reversed(const WrittenSection& section) const {
    const auto start = section.start;
    const auto end = section.end;
    const uint64_t day = start / seconds_per_day;
    const bool is_within_day = end / seconds_per_day == day;
    if (is_within_day && (day + 1) * seconds_per_day < type_.unit_length) {
      return "to end after midnight, write " +
             quoted(written_position(end + seconds_per_day, type_));
    }
    const uint64_t on_same_day = day * seconds_per_day + end % seconds_per_day;
    const uint64_t next_end = on_same_day > start ? on_same_day : on_same_day + seconds_per_day;
    if (!is_within_day && next_end < type_.unit_length &&
        read_clock(lower_case(section.text_of(ScheduleKey::end)))) {
      return "an end without a day is on the first day of the unit; write " +
             quoted(written_position(next_end, type_));
    }
    return "to run past the end of the unit, write two items, from " +
           quoted(written_position(start, type_)) + " to " +
           quoted(written_end(type_.unit_length, type_)) + " and from " +
           quoted(written_position(0, type_)) + " to " + quoted(written_end(end, type_));
  }

  void check_membership() {
    std::map<std::string, bool> has_members;
    for (const auto& [start, number] : written_.block_numbers) {
      has_members[written_.blocks[number].text_of(ScheduleKey::block)] = false;
    }
    for (const auto& [start, number] : written_.item_numbers) {
      const WrittenSection& item = written_.items[number];
      const std::string name = item.text_of(ScheduleKey::block);
      if (name.empty()) {
        continue;
      }
      const auto block = has_members.find(name);
      if (block == has_members.end()) {
        add(FindingKind::unknown_block, item.place_of(ScheduleKey::block),
            "no schedule block is called " + quoted(name));
      } else {
        block->second = true;
      }
    }
    for (const auto& [start, number] : written_.block_numbers) {
      const WrittenSection& block = written_.blocks[number];
      const std::string name = block.text_of(ScheduleKey::block);
      if (has_members[name]) {
        check_members(block, name);
      }
    }
  }

  void check_members(const WrittenSection& block, const std::string& name) {
    for (auto it = written_.item_numbers.lower_bound(block.start);
         it != written_.item_numbers.end() && it->first < block.end; ++it) {
      const WrittenSection& item = written_.items[it->second];
      if (item.text_of(ScheduleKey::block) != name) {
        add(FindingKind::no_member, item.place,
            "this item lies within the block " + quoted(name) + " but is not a member of it",
            {{block.place, "the block is here"}});
      }
    }
  }

  /// The section of an announced block that is in the way of a later one. Null if the item is not
  /// such a block.
  const WrittenSection* announced_block(const ScheduleItem& item) const {
    const bool is_block = announced_.contains(item.start) && item.start != block_;
    return is_block ? written_.block_at(item.start) : nullptr;
  }

  /// The section of the item, or null if it gets no findings.
  const WrittenSection* sound_section(const ScheduleItem& item) const {
    const WrittenSection* block = announced_block(item);
    const WrittenSection* section = block != nullptr ? block : written_.item_at(item.start);
    return section != nullptr && !section->is_broken ? section : nullptr;
  }

  /// Checks the reported unit and the next two.
  void check_clock_changes(time_t report_time) {
    constexpr int units = 3;
    time_t t = report_time;
    for (int i = 0; i < units; ++i) {
      const Unit unit = unit_of(type_.text, t);
      check_unit(unit);
      t = unit.end + 1;
    }
  }

  void check_unit(const Unit& unit) {
    const std::vector<LocalStretch> stretches = local_stretches(unit.start, unit.end);
    if (stretches.size() < 2) {
      return;
    }
    UnitClock clock(type_.text, unit.start);
    for (const auto& [start, number] : written_.item_numbers) {
      const time_t t = clock.time_of(start);
      if (t == -1) {
        add_clock_change(FindingKind::skipped_hour, number, clock, start, "skip this time");
      } else if (t >= unit.start && t <= unit.end && is_repeated(stretches, t)) {
        add_clock_change(FindingKind::repeated_hour, number, clock, start, "show this time twice");
      }
    }
  }

  static bool is_repeated(const std::vector<LocalStretch>& stretches, time_t t) {
    for (size_t i = 1; i < stretches.size(); ++i) {
      const LocalStretch& before = stretches[i - 1];
      const LocalStretch& after = stretches[i];
      const int64_t back = before.ahead - after.ahead;
      if (back > 0 && t > before.last - back && t < after.first + back) {
        return true;
      }
    }
    return false;
  }

  void add_clock_change(FindingKind kind, size_t number, UnitClock& clock, uint64_t start,
                        const std::string& what) {
    const uint64_t noon = start / seconds_per_day * seconds_per_day + seconds_per_day / 2;
    const std::tm* tm = clock.breakdown(clock.time_of(noon));
    const bool is_known = !clock_changes_.emplace(number, kind).second;
    if (tm == nullptr || is_known) {
      return;
    }
    const WrittenSection& item = written_.items[number];
    add(kind, item.place_of(ScheduleKey::start),
        "the clocks " + what + " on " + local_text(*tm, "%F") +
            (kind == FindingKind::skipped_hour ? ", so it does not air"
                                               : "; it airs at one of the two"));
  }

  WrittenSchedule& written_;
  std::vector<Finding>& findings_;
  const ScheduleType& type_;
  std::set<std::pair<size_t, FindingKind>> clock_changes_;  ///< items that have this finding
  std::set<uint64_t> announced_;                            ///< blocks, by start
  uint64_t block_ = 0;  ///< start of the block that is announced now
};

}  // namespace

void check_passes(WrittenSchedule& written, time_t report_time, std::vector<Finding>& findings) {
  PassCheck(written, findings).check(report_time);
}
