#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/syntax/schedule_types.hpp"
#include "schedule/pass_observer.hpp"

// One channel's playout schedule in memory.
//
// Every start and end counts schedule seconds: seconds from the beginning of the schedule's unit
// (day, week, month, year or endless span) in a calendar of 86400-second days, 31-day months and
// 372-day years. schedule_time.hpp turns them into calendar time.

/// All bits set: no time.
inline constexpr uint64_t no_time = ~uint64_t{0};

/// Times are compared as signed values, with "no time" and with each other.
constexpr int64_t as_signed(uint64_t schedule_seconds) {
  return static_cast<int64_t>(schedule_seconds);
}

struct ScheduleItem {
  double duration = -1.0;       ///< length of the media in seconds; -1 when unknown
  bool is_default = false;      ///< fills a gap
  bool is_block = false;        ///< stands for a whole block: `item` is the block's name
  bool block_announce = false;  ///< whether a block item is announced
  uint64_t start = no_time;     ///< schedule seconds; the item covers [start, end)
  uint64_t end = no_time;
  std::string event_id;
  std::string label;
  std::string block;                            ///< name of the block the item belongs to
  std::string item;                             ///< path of the media or subschedule file
  std::map<std::string, std::string> metadata;  ///< from the play log, if it aired
};

struct ScheduleBlock {
  uint64_t start = no_time;  ///< schedule seconds
  uint64_t end = no_time;
  std::string block;     ///< the block's name
  std::string announce;  ///< "block", "items" or another text
};

/// By start.
using ScheduleItems = std::map<uint64_t, ScheduleItem>;

/// The record takes about 180 kB, nearly all of it for `defaults`. Do not copy it.
struct Schedule {
  std::map<uint64_t, ScheduleBlock> blocks;         ///< by start
  ScheduleItems schedule;                           ///< the items that air
  std::string type;                                 ///< name of the type; empty until it is known
  std::array<std::string, default_slots> defaults;  ///< for each day, what fills its gaps
  std::string global_default;        ///< default item of days without one of their own
  int32_t unit_days = 0;             ///< days of the calendar unit; 0 until it is known
  uint64_t unit_length = 0;          ///< schedule seconds
  int64_t unit_start = 0;            ///< first and last second of the calendar unit that
  int64_t unit_end = 0;              ///< holds the report time, calendar time
  PassObserver* observer = nullptr;  ///< receives what the passes do; may be null
};
