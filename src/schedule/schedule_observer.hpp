#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

/// What the reader did with a line, or a pass with an item.
enum class Deed {
  // The reader, of the line it has just read: `text` is the line without blanks around it.
  passed_comment,
  took_type,
  passed_type,  ///< unknown, or one was known before
  took_global_default,
  passed_name,    ///< a name at the top level that means nothing
  began_section,  ///< `text` is its name
  began_nested,   ///< a section within one
  ended_nested,
  ended_section,
  read_item_line,   ///< in an item's section
  read_block_line,  ///< in a block's section
  took_default,     ///< `start` is the day's slot
  passed_default,   ///< no key of the type, or no name and value
  passed_line,      ///< in a section that is skipped
  // The reader, of the section that ended with that line or, before its end, with the file.
  cut_off_section,
  stored_item,
  dropped_item,
  stored_block,
  dropped_block,
  // The passes, of the item or block that starts at `start`.
  removed_reversed,  ///< it ended at `end`
  clipped,           ///< from `end` to `other`, where the next item starts
  filled_gap,        ///< from `start` to `end`
  kept_block_items,  ///< the block stays in pieces: for the programme at `other`, or as it says
  announced_block,
  block_removed_item,   ///< from `start` to `end`; the block is at `other`
  block_cut_item,       ///< which ends at the block's start `other` now, no longer at `end`
  block_moved_item,     ///< which starts at the block's end `other` now
  patched_in_schedule,  ///< in place of the item from `start` to `end`; `text` is its path
  patched_in_item,      ///< from `start` to `end`: the one at `other` of the schedule in `text`
  wrapped_around,  ///< at `start` the unit of the schedule in `text` ends, the item only at `end`
  reached_last_level,  ///< schedules within schedules are patched in no deeper
};

struct Observation {
  Deed deed;
  int64_t line = 0;  ///< of the file, from 1; 0 for the passes
  std::string_view text;
  uint64_t start = 0;  ///< schedule seconds, as the others
  uint64_t end = 0;
  uint64_t other = 0;
};

/// Looks on; empty in a run that prints a document.
using ScheduleObserver = std::function<void(const Observation&)>;
