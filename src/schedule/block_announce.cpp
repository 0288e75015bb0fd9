#include "schedule/block_announce.hpp"

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/system/activity.hpp"
#include "platform/system/invariant.hpp"

namespace {

using Items = ScheduleItems;

constexpr const char* signature = "bool block_announce_subst(Schedule&)";

/// The item that starts at `start` or, if there is none, the last item before it. There always is
/// one: the gaps were filled from the start of the unit.
Items::iterator item_at_or_before(Items& items, uint64_t start) {
  auto sit = items.lower_bound(start);
  if (sit == items.end() || sit->first != start) {
    INVARIANT_OF(signature, sit != items.begin(), "sit != schedule.schedule.begin()");
    --sit;
  }
  INVARIANT_OF(signature, sit != items.end(), "sit != schedule.schedule.end()");
  return sit;
}

/// Whether a programme (an item that is not a filler) begins or ends inside the block. A programme
/// that runs through the whole block does not count. Blocks are visited in order of their starts:
/// all items from the last block's start to `fillers_end` are fillers, and an overlapping block
/// does not visit them again.
bool has_programme(Items& items, const ScheduleBlock& block, uint64_t& fillers_end) {
  const auto first = item_at_or_before(items, block.start);
  const ScheduleItem& item = first->second;
  if (!item.is_default && block.start < item.end && item.end <= block.end) {
    return true;
  }
  fillers_end = std::max(fillers_end, block.start);
  auto sit = items.lower_bound(fillers_end);
  while (sit != items.end() && sit->first < block.end && sit->second.is_default) {
    ++sit;
  }
  const bool is_found = sit != items.end() && sit->first < block.end;
  fillers_end = std::max(fillers_end, is_found ? sit->first : block.end);
  return is_found;
}

/// Shortens an item that runs past the block's end to the part after the block.
void keep_tail(Schedule& schedule, Items::iterator sit, uint64_t block_end) {
  Items& items = schedule.schedule;
  if (schedule.observer != nullptr) {
    schedule.observer->moving_behind_block(sit->second, block_end);
  }
  ScheduleItem csit = std::move(sit->second);
  items.erase(sit);
  csit.start = block_end;
  INVARIANT_OF(signature, csit.start < csit.end, "csit.start < csit.end");
  items.insert_or_assign(block_end, std::move(csit));
}

/// Clears [start, end) of items.
void make_room(Schedule& schedule, uint64_t start, uint64_t end) {
  Items& items = schedule.schedule;
  if (items.empty()) {
    return;
  }
  auto sit = item_at_or_before(items, start);
  if (sit->second.start < start) {
    ScheduleItem& before = sit->second;
    if (before.start < before.end && before.end > start) {
      if (schedule.observer != nullptr) {
        schedule.observer->cutting_for_block(before, start);
      }
      before.end = start;
    }
    ++sit;
  }
  while (sit != items.end() && sit->first < end) {
    INVARIANT_OF(signature, sit->first == sit->second.start,
                 "sit->first == (unsigned long)sit->second.start");
    if (sit->second.end > end) {
      keep_tail(schedule, sit, end);
      return;
    }
    if (schedule.observer != nullptr) {
      schedule.observer->removing_for_block(sit->second, start);
    }
    sit = items.erase(sit);
  }
}

void substitute(Schedule& schedule, const ScheduleBlock& block) {
  make_room(schedule, block.start, block.end);
  ScheduleItem& item = schedule.schedule[block.start];
  item.is_block = true;
  item.block_announce = true;
  item.duration = static_cast<double>(block.end - block.start);
  item.block = block.block;
  item.start = block.start;
  item.end = block.end;
  item.item = block.block;
}

}  // namespace

bool block_announce_subst(Schedule& schedule) {
  const Activity activity("announcing the blocks of");
  uint64_t fillers_end = 0;
  for (const auto& [start, block] : schedule.blocks) {
    const bool has_time = as_signed(block.start) >= 0 && as_signed(block.end) >= 0 &&
                          as_signed(block.start) < as_signed(block.end);
    if (!has_time || block.announce == "items") {
      continue;
    }
    if (block.announce != "block" && has_programme(schedule.schedule, block, fillers_end)) {
      continue;
    }
    if (schedule.observer != nullptr) {
      schedule.observer->announcing(block);
    }
    substitute(schedule, block);
  }
  return true;
}
