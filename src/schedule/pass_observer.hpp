#pragma once

#include <cstdint>

struct ScheduleBlock;
struct ScheduleItem;

/// Receives what the passes do to the items of a schedule. Each function is called just before the
/// change. It does nothing unless it is overridden. All times are schedule seconds.
class PassObserver {
 public:
  PassObserver() = default;
  PassObserver(const PassObserver&) = delete;
  PassObserver& operator=(const PassObserver&) = delete;
  virtual ~PassObserver() = default;

  /// An item that ends before it starts is dropped.
  virtual void removing_reversed(const ScheduleItem& /*item*/) {}
  /// The end of an item that runs into the next one becomes the start of that one.
  virtual void clipping(const ScheduleItem& /*item*/, uint64_t /*new_end*/) {}
  /// A default item fills a gap.
  virtual void filling_gap(uint64_t /*start*/, uint64_t /*end*/) {}

  /// A block is announced as one item. The calls up to the next `announcing` make room for it.
  virtual void announcing(const ScheduleBlock& /*block*/) {}
  /// An item lies in the block that starts at `block_start`, and is dropped.
  virtual void removing_for_block(const ScheduleItem& /*item*/, uint64_t /*block_start*/) {}
  /// An item that runs into the block ends where the block starts.
  virtual void cutting_for_block(const ScheduleItem& /*item*/, uint64_t /*block_start*/) {}
  /// An item that runs out of the block starts where the block ends.
  virtual void moving_behind_block(const ScheduleItem& /*item*/, uint64_t /*block_end*/) {}

  /// An item is replaced by the items of the schedule in its file.
  virtual void replacing_by_schedule(const ScheduleItem& /*item*/) {}
  /// An item of that schedule is inserted.
  virtual void inserting_from_schedule(uint64_t /*start*/, uint64_t /*end*/) {}
  /// The unit of that schedule ends before the item that it replaces.
  virtual void wrapping_around() {}
  /// Subschedules below this level are not replaced.
  virtual void reaching_last_level() {}
};
