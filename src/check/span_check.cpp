#include <map>
#include <string>

#include "check/checks.hpp"
#include "check/position_text.hpp"
#include "platform/syntax/text.hpp"
#include "platform/time/written_time.hpp"

namespace {

/// How to write a programme that runs past midnight or past the end of the unit, or whose end has
/// no day.
std::string advice_on_reversed(const WrittenSection& section, const ScheduleType& type) {
  const auto start = section.start;
  const auto end = section.end;
  const uint64_t day = start / seconds_per_day;
  const bool is_within_day = end / seconds_per_day == day;
  if (is_within_day && (day + 1) * seconds_per_day < type.unit_length) {
    return "to end after midnight, write " + quoted(written_position(end + seconds_per_day, type));
  }
  const uint64_t on_same_day = day * seconds_per_day + end % seconds_per_day;
  const uint64_t next_end = on_same_day > start ? on_same_day : on_same_day + seconds_per_day;
  if (!is_within_day && next_end < type.unit_length &&
      read_clock(lower_case(section.text_of(ScheduleKey::end)))) {
    return "an end without a day is on the first day of the unit; write " +
           quoted(written_position(next_end, type));
  }
  return "to run past the end of the unit, write two items, from " +
         quoted(written_position(start, type)) + " to " +
         quoted(written_end(type.unit_length, type)) + " and from " +
         quoted(written_position(0, type)) + " to " + quoted(written_end(end, type));
}

void check_span(const WrittenSection& section, const std::string& what, const ScheduleType& type,
                FileFindings& found) {
  if (section.is_broken) {
    return;
  }
  const auto start = section.start;
  const auto end = section.end;
  const std::string unit = "the schedule's " + unit_text(type);
  if (type.unit_length > 0 && start >= type.unit_length) {
    found.add(FindingKind::outside_unit, section.place_of(ScheduleKey::start),
              "the " + what + " starts outside " + unit);
  } else if (as_signed(start) > as_signed(end)) {
    found.add(FindingKind::reversed, section.place_of(ScheduleKey::end),
              "the " + what + " ends before it starts; " + advice_on_reversed(section, type));
  } else if (start == end) {
    found.add(FindingKind::no_length, section.place_of(ScheduleKey::end),
              "the " + what + " ends at the same time as it starts");
  } else if (type.unit_length > 0 && end > type.unit_length) {
    found.add(FindingKind::outside_unit, section.place_of(ScheduleKey::end),
              "the " + what + " ends after " + unit);
  } else if (start + 1 == type.unit_length) {
    found.add(FindingKind::last_second, section.place_of(ScheduleKey::start),
              "the " + what + " starts in the last second of " + unit +
                  ", and no document shows it; start it a second earlier");
  }
}

/// Checks that the items within the block are members of it.
void check_members(const WrittenSections& items, const WrittenSection& block, FileFindings& found) {
  const std::string name = block.text_of(ScheduleKey::block);
  for (auto it = items.by_start.lower_bound(block.start);
       it != items.by_start.end() && it->first < block.end; ++it) {
    const WrittenSection& item = items.all[it->second];
    if (item.text_of(ScheduleKey::block) != name) {
      found.add(FindingKind::no_member, item.place,
                "this item lies within the block " + quoted(name) + " but is not a member of it",
                {{block.place, "the block is here"}});
    }
  }
}

/// A block without members may have any items.
void check_membership(const WrittenSchedule& written, FileFindings& found) {
  std::map<std::string, bool> has_members;
  for (const auto& [start, number] : written.blocks.by_start) {
    has_members[written.blocks.all[number].text_of(ScheduleKey::block)] = false;
  }
  for (const auto& [start, number] : written.items.by_start) {
    const WrittenSection& item = written.items.all[number];
    const std::string name = item.text_of(ScheduleKey::block);
    if (name.empty()) {
      continue;
    }
    if (has_members.contains(name)) {
      has_members[name] = true;
    } else {
      found.add(FindingKind::unknown_block, item.place_of(ScheduleKey::block),
                "no schedule block is called " + quoted(name));
    }
  }
  for (const auto& [start, number] : written.blocks.by_start) {
    const WrittenSection& block = written.blocks.all[number];
    if (has_members[block.text_of(ScheduleKey::block)]) {
      check_members(written.items, block, found);
    }
  }
}

}  // namespace

void check_sections(const WrittenSchedule& written, FileFindings& found) {
  const ScheduleType& type = *find_schedule_type(written.schedule.type);
  for (const auto& [start, number] : written.items.by_start) {
    check_span(written.items.all[number], "programme", type, found);
  }
  for (const auto& [start, number] : written.blocks.by_start) {
    check_span(written.blocks.all[number], "block", type, found);
  }
  check_membership(written, found);
}
