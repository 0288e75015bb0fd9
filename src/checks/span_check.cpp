#include <map>
#include <string>
#include <utility>

#include "checks/checks.hpp"
#include "checks/position_text.hpp"
#include "checks/span_advice.hpp"

namespace {

/// Whether a time of the section has a finding already, so that the other cannot fit.
bool has_doubtful_time(const WrittenSchedule& written, const WrittenSection& section) {
  return written.doubtful_times.contains(section.place_of(ScheduleKey::start).line) ||
         written.doubtful_times.contains(section.place_of(ScheduleKey::end).line);
}

void check_span(const WrittenSchedule& written, const WrittenSection& section, const char* what,
                const ScheduleType& type, FileFindings& found) {
  if (section.is_broken) {
    return;
  }
  const auto start = section.start;
  const auto end = section.end;
  const auto subject = [&] { return "the " + std::string(what); };
  const auto unit = [&] { return "the schedule's " + unit_text(type); };
  if (type.unit_length > 0 && start >= type.unit_length) {
    found.add(FindingKind::outside_unit, section.place_of(ScheduleKey::start),
              subject() + " starts outside " + unit());
  } else if (as_signed(start) >= as_signed(end)) {
    if (has_doubtful_time(written, section)) {
      return;
    }
    SpanAdvice advice = advise_on_span(written, section, type);
    const char* fault =
        start == end ? " ends at the same time as it starts" : " ends before it starts";
    found.add(start == end ? FindingKind::no_length : FindingKind::reversed,
              section.place_of(ScheduleKey::end), subject() + fault + advice.text, {},
              std::move(advice.fix));
  } else if (type.unit_length > 0 && end > type.unit_length) {
    found.add(FindingKind::outside_unit, section.place_of(ScheduleKey::end),
              subject() + " ends after " + unit());
  } else if (start + 1 == type.unit_length) {
    found.add(FindingKind::last_second, section.place_of(ScheduleKey::start),
              subject() + " starts in the last second of " + unit() +
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

/// By the name of a block: whether an item is a member of it.
using Membership = std::map<std::string, bool>;

void check_block_of_item(const WrittenSection& item, Membership& has_members, FileFindings& found) {
  const WrittenValue* block = item.value_of(ScheduleKey::block);
  if (block == nullptr) {
    return;
  }
  const auto known = has_members.find(std::string(block->text));
  if (known != has_members.end()) {
    known->second = true;
  } else {
    found.add(FindingKind::unknown_block, block->place,
              "no schedule block is called " + quoted(block->text));
  }
}

}  // namespace

void check_sections(const WrittenSchedule& written, FileFindings& found) {
  const ScheduleType& type = *find_schedule_type(written.schedule.type);
  Membership has_members;
  for (const auto& [start, number] : written.blocks.by_start) {
    const WrittenSection& block = written.blocks.all[number];
    check_span(written, block, "block", type, found);
    has_members[block.text_of(ScheduleKey::block)] = false;
  }
  // Large schedules have many items. So they are walked through once.
  for (const auto& [start, number] : written.items.by_start) {
    const WrittenSection& item = written.items.all[number];
    check_span(written, item, "programme", type, found);
    check_block_of_item(item, has_members, found);
  }
  // A block without members may have any items.
  for (const auto& [start, number] : written.blocks.by_start) {
    const WrittenSection& block = written.blocks.all[number];
    if (has_members[block.text_of(ScheduleKey::block)]) {
      check_members(written.items, block, found);
    }
  }
}
