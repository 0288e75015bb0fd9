#include "check/story.hpp"

#include "checks/finding.hpp"
#include "checks/position_text.hpp"

void Story::add_part(const SchedulePart& part, const PartEffect& effect) {
  const bool is_end = part.kind == PartKind::section_end || part.kind == PartKind::cut_off;
  if (!is_end || !effect.is_used) {
    return;
  }
  if (part.section == SectionKind::item) {
    take_item(effect, part.section_line);
  } else {
    block_lines_[effect.start] = part.section_line;
  }
}

void Story::take_item(const PartEffect& item, int64_t line) {
  const auto earlier = written_.find(item.start);
  if (earlier != written_.end()) {
    add_lost(item.start, earlier->second.end, earlier->second.line,
             "another item starts at the same time, at line " + std::to_string(line));
  }
  written_[item.start] = {line, item.end};
  origins_[item.start] = {name_ + ":" + std::to_string(line), {}};
}

void Story::add_lost(uint64_t start, uint64_t end, int64_t line, const std::string& reason) {
  lost_.push_back({start, end, "line " + std::to_string(line) + ": " + reason});
}

std::vector<std::string> Story::lost_at(uint64_t position) const {
  std::vector<std::string> lost;
  for (const auto& [start, end, reason] : lost_) {
    if (start <= position && position < end) {
      lost.push_back(reason);
    }
  }
  return lost;
}

std::string Story::position(uint64_t seconds) const {
  return written_position(seconds, *find_schedule_type(schedule_.type));
}

std::string Story::end_position(uint64_t seconds) const {
  return written_end(seconds, *find_schedule_type(schedule_.type));
}

void Story::removing_reversed(const ScheduleItem& item) {
  add_lost(item.start, (item.start / seconds_per_day + 1) * seconds_per_day,
           written_[item.start].line, "ends before it starts and is dropped");
}

void Story::clipping(const ScheduleItem& item, uint64_t new_end) {
  const std::string cut = cut_text(item, new_end);
  origins_[item.start].events.push_back(cut);
  add_lost(new_end, item.end, written_[item.start].line, cut);
}

void Story::filling_gap(uint64_t start, uint64_t end) {
  origins_[start] = {"a gap, as nothing is written for " + position(start) + " to " +
                         end_position(end) + ": the default item of the day",
                     {}};
}

/// Blocks are announced again for each schedule that is patched in. The story keeps the first
/// announcement.
void Story::announcing(const ScheduleBlock& block) {
  const std::string where = "the block " + quoted(block.block) + " of " + name_ + ":" +
                            std::to_string(block_lines_[block.start]) + ", announced as one";
  is_announced_again_ = origins_[block.start].where == where;
  if (!is_announced_again_) {
    displaced_ = std::exchange(origins_[block.start], Origin{where, {}});
  }
}

void Story::removing_for_block(const ScheduleItem& item, uint64_t block_start) {
  if (!is_announced_again_) {
    const Origin& gone = item.start == block_start ? displaced_ : origins_[item.start];
    origins_[block_start].events.push_back("in place of: " + gone.where + " at " +
                                           position(item.start));
  }
}

void Story::cutting_for_block(const ScheduleItem& item, uint64_t block_start) {
  origins_[item.start].events.push_back(cut_text(item, block_start));
}

void Story::moving_behind_block(const ScheduleItem& item, uint64_t block_end) {
  Origin origin = origins_[item.start];
  origin.events.push_back("cut: begins at " + position(block_end) + ", after a block, and not at " +
                          position(item.start));
  origins_[block_end] = std::move(origin);
}

void Story::replacing_by_schedule(const ScheduleItem& item) {
  inserted_ = std::move(origins_[item.start]);
  inserted_.where =
      "the schedule " + quoted(item.item) + ", which airs in place of " + inserted_.where;
}

void Story::inserting_from_schedule(uint64_t start, uint64_t /*end*/) {
  origins_[start] = inserted_;
}

std::string Story::cut_text(const ScheduleItem& item, uint64_t new_end) {
  const std::string& next = origins_[new_end].where;
  return "cut: at " + end_position(new_end) + " by " + (next.empty() ? "what starts there" : next) +
         "; it was to end at " + end_position(item.end);
}
