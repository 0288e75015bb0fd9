#include "properties/repair_checks.hpp"

#include <algorithm>
#include <iterator>
#include <memory>

#include "properties/quiet.hpp"
#include "properties/random_items.hpp"
#include "schedule/complete_schedule.hpp"
#include "schedule/watchdog.hpp"

namespace {

std::string at(const char* what, uint64_t position) {
  return std::string(what) + " at " + std::to_string(as_signed(position));
}

bool is_reversed(const ScheduleItem& item) {
  return as_signed(item.start) > as_signed(item.end);
}

size_t count_of(const std::string& text, const std::string& line) {
  size_t count = 0;
  for (size_t i = text.find(line); i != std::string::npos; i = text.find(line, i + 1)) {
    ++count;
  }
  return count;
}

/// What a repair leaves of the items themselves, and the number of those it cuts.
ScheduleItems kept_items(const Schedule& before, size_t& cuts) {
  ScheduleItems kept;
  ScheduleItem* last = nullptr;
  for (const auto& [start, item] : before.schedule) {
    if (is_reversed(item)) {
      continue;
    }
    if (last != nullptr && start < last->end) {
      last->end = start;
      ++cuts;
    }
    last = &(kept[start] = item);
  }
  return kept;
}

/// A gap begins at a midnight or behind an item, and ends at one.
std::string complaint_about_default(const Schedule& before, const Schedule& repaired,
                                    ScheduleItems::const_iterator it) {
  const ScheduleItem& item = it->second;
  const uint64_t day = item.start / seconds_per_day;
  if (item.item != before.defaults[day]) {
    return at("not the day's default item", item.start);
  }
  if (item.end > (day + 1) * seconds_per_day || item.end <= item.start) {
    return at("a default item of wrong length", item.start);
  }
  ScheduleItem plain;
  plain.start = item.start;
  plain.end = item.end;
  plain.item = item.item;
  plain.is_default = true;
  plain.duration = static_cast<double>(item.end - item.start);
  if (!is_same_item(item, plain)) {
    return at("a default item with more than its path", item.start);
  }
  const auto next = std::next(it);
  if (item.end % seconds_per_day != 0 && next != repaired.schedule.end() &&
      next->second.is_default) {
    return at("a gap in two pieces", item.start);
  }
  return {};
}

}  // namespace

std::string repair(Schedule& schedule) {
  KeptErrors errors;
  remove_reversed_items(schedule);
  fix_schedule_file(schedule);
  remove_reversed_items(schedule);
  patch_schedule_default_items(schedule);
  remove_reversed_items(schedule);
  cancel_watchdog();
  return errors.text();
}

bool is_same_item(const ScheduleItem& a, const ScheduleItem& b) {
  return a.duration == b.duration && a.is_default == b.is_default && a.is_block == b.is_block &&
         a.block_announce == b.block_announce && a.start == b.start && a.end == b.end &&
         a.event_id == b.event_id && a.label == b.label && a.block == b.block && a.item == b.item &&
         a.metadata == b.metadata;
}

bool is_same_listing(const Schedule& a, const Schedule& b) {
  return std::ranges::equal(a.schedule, b.schedule, [](const auto& one, const auto& other) {
    return one.first == other.first && is_same_item(one.second, other.second);
  });
}

std::string complaint_about_order(const Schedule& repaired) {
  int64_t latest_end = 0;
  for (const auto& [start, item] : repaired.schedule) {
    if (start != item.start) {
      return at("a key that is not the start", start);
    }
    if (is_reversed(item)) {
      return at("a reversed item", start);
    }
    if (as_signed(start) < latest_end) {
      return at("an overlap", start);
    }
    latest_end = as_signed(item.end);
  }
  return {};
}

std::string complaint_about_cover(const Schedule& repaired) {
  uint64_t covered = 0;
  for (const auto& [start, item] : repaired.schedule) {
    if (start >= repaired.unit_length) {
      break;
    }
    if (start != covered) {
      return at(start > covered ? "a gap" : "an overlap", covered);
    }
    covered = std::max(item.end, start + 1);
  }
  return covered < repaired.unit_length ? at("a gap", covered) : "";
}

std::string complaint_about_kept_items(const Schedule& before, const Schedule& repaired,
                                       const std::string& printed) {
  size_t cuts = 0;
  for (const auto& [start, item] : kept_items(before, cuts)) {
    const auto found = repaired.schedule.find(start);
    if (found == repaired.schedule.end() || !is_same_item(found->second, item)) {
      return at("an item is lost or changed", start);
    }
  }
  const size_t reports = count_of(printed, "Clipping overlapping item\n");
  return reports == cuts ? "" : std::to_string(reports) + " reports of cuts";
}

std::string complaint_about_defaults(const Schedule& before, const Schedule& repaired) {
  for (auto it = repaired.schedule.begin(); it != repaired.schedule.end(); ++it) {
    const auto found = before.schedule.find(it->first);
    const bool is_kept = found != before.schedule.end() && !is_reversed(found->second);
    if (it->second.is_default == is_kept) {
      return at(is_kept ? "a default item in an item's place" : "an item from nowhere", it->first);
    }
    if (is_kept) {
      continue;
    }
    std::string complaint = complaint_about_default(before, repaired, it);
    if (!complaint.empty()) {
      return complaint;
    }
  }
  return {};
}

std::string complaint_about_repetition(const Schedule& repaired) {
  const auto again = std::make_unique<Schedule>(repaired);
  if (!repair(*again).empty() || !is_same_listing(*again, repaired)) {
    return "a second repair changes the schedule";
  }
  again->unit_days = find_schedule_type(repaired.type)->unit_days;
  if (!repair(*again).empty() || !is_same_listing(*again, repaired)) {
    return "a repair with known unit days changes the schedule";
  }
  return {};
}

std::string complaint_about_repair(const Schedule& before) {
  const auto repaired = std::make_unique<Schedule>(before);
  const std::string printed = repair(*repaired);
  for (const std::string& complaint :
       {complaint_about_order(*repaired), complaint_about_cover(*repaired),
        complaint_about_kept_items(before, *repaired, printed),
        complaint_about_defaults(before, *repaired), complaint_about_repetition(*repaired)}) {
    if (!complaint.empty()) {
      return complaint + "\nafter the repair:\n" + listing_of(*repaired);
    }
  }
  return {};
}
