#pragma once

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

/// Times that are compared with "none" or with each other are compared as signed values.
constexpr int64_t as_signed(uint64_t schedule_seconds) {
  return static_cast<int64_t>(schedule_seconds);
}

struct ScheduleItem {
  double duration = -1.0;       ///< seconds the media runs; -1 when unknown
  bool is_default = false;      ///< made to fill a gap
  bool is_block = false;        ///< stands for a whole block: `item` is the block's name
  bool block_announce = false;  ///< whether a block item is announced
  uint64_t start = no_time;     ///< schedule seconds; the item airs over [start, end)
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
  std::string announce;  ///< "block", "items" or anything else
};

/// The default item of each day of the unit, by its number. A day without one of its own reads as
/// the rest does; until a day is given one there is no room for any, as few schedules need it.
struct DefaultItems {
  std::vector<std::string> own;
  std::string rest;

  const std::string& operator[](size_t day) const {
    return own.empty() || own[day].empty() ? rest : own[day];
  }

  void set(size_t day, std::string_view item) {
    own.resize(default_slots);
    own[day] = item;
  }
};

/// By start.
using ScheduleItems = std::map<uint64_t, ScheduleItem>;

struct Schedule {
  std::map<uint64_t, ScheduleBlock> blocks;  ///< by start
  ScheduleItems schedule;                    ///< what airs
  std::string type;                          ///< a type's text; empty until it is known
  DefaultItems defaults;                     ///< what plays in the gaps of each day
  std::string global_default;                ///< default item of days without one of their own
  int32_t unit_days = 0;                     ///< days of the calendar unit; 0 until it is known
  uint64_t unit_length = 0;                  ///< schedule seconds
  int64_t unit_start = 0;                    ///< first and last second of the calendar unit that
  int64_t unit_end = 0;                      ///< holds the report time, calendar time
  PassObserver* observer = nullptr;          ///< told what the passes do; null: nobody
};
