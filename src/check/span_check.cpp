#include <map>
#include <string>
#include <utility>

#include "check/checks.hpp"
#include "check/position_text.hpp"
#include "check/span_advice.hpp"

namespace {

/// Whether a time of the section has a finding already, so that the other cannot fit.
bool has_doubtful_time(const WrittenSchedule& written, const WrittenSection& section) {
  return written.doubtful_times.contains(section.place_of(ScheduleKey::start).line) ||
         written.doubtful_times.contains(section.place_of(ScheduleKey::end).line);
}

void check_span(const WrittenSchedule& written, const WrittenSection& section,
                const std::string& what, const ScheduleType& type, FileFindings& found) {
  if (section.is_broken) {
    return;
  }
  const auto start = section.start;
  const auto end = section.end;
  const std::string unit = "the schedule's " + unit_text(type);
  if (type.unit_length > 0 && start >= type.unit_length) {
    found.add(FindingKind::outside_unit, section.place_of(ScheduleKey::start),
              "the " + what + " starts outside " + unit);
  } else if (as_signed(start) >= as_signed(end)) {
    if (has_doubtful_time(written, section)) {
      return;
    }
    SpanAdvice advice = advise_on_span(written, section, type);
    const char* fault =
        start == end ? " ends at the same time as it starts" : " ends before it starts";
    found.add(start == end ? FindingKind::no_length : FindingKind::reversed,
              section.place_of(ScheduleKey::end), "the " + what + fault + advice.text, {},
              std::move(advice.fix));
  } else if (type.unit_length > 0 && end > type.unit_length) {
    found.add(FindingKind::outside_unit, section.place_of(ScheduleKey::end),
              "the " + what + " ends after " + unit);
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
    check_span(written, written.items.all[number], "programme", type, found);
  }
  for (const auto& [start, number] : written.blocks.by_start) {
    check_span(written, written.blocks.all[number], "block", type, found);
  }
  check_membership(written, found);
}
