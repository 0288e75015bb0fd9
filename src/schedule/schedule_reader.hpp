#pragma once

#include <cstdint>

#include "platform/syntax/schedule_file.hpp"
#include "platform/system/file.hpp"
#include "schedule/schedule.hpp"

/// Reads a schedule file: its type, default items, blocks and items, all times turned into
/// schedule seconds. `schedule` is a fresh record; of one that was used, type, items and default
/// slots are replaced, and blocks and the global default survive. What the file gets wrong is
/// skipped. False, with nothing changed, only when the file cannot be opened. A read error is
/// the end of the file, with a warning on standard error.
bool read_schedule_file(Schedule& schedule, const char* path, Links links = Links::followed);

/// What a part of a file did to the record.
struct PartEffect {
  /// By the kind of the part: the type was taken (also from the name of a defaults section), the
  /// global default or a day's default was stored, the item or block that ended was stored.
  bool is_used = false;
  int default_slot = 0;      ///< of a stored default
  uint64_t start = no_time;  ///< schedule seconds, of the item or block that ended, stored or not
  uint64_t end = no_time;
};

/// Makes a record of the parts of a schedule file, handed over in order.
class ScheduleBuilder {
 public:
  /// Clears the record as read_schedule_file does.
  explicit ScheduleBuilder(Schedule& schedule);

  PartEffect add_part(const SchedulePart& part);

  /// Settles what the file left open.
  void finish();

 private:
  bool take_type(std::string_view text);
  void begin_section(const SchedulePart& part, PartEffect& effect);
  void add_entry(const SchedulePart& part, PartEffect& effect);
  void set_item_value(ScheduleKey key, std::string_view value);
  void set_block_value(ScheduleKey key, std::string_view value);
  void set_default(const SchedulePart& part, PartEffect& effect);
  void store_item(PartEffect& effect);
  void store_block(PartEffect& effect);
  uint64_t read_time(std::string_view text) const;

  Schedule& schedule_;
  ScheduleItem item_;  ///< of the open section, as is the block
  ScheduleBlock block_;
};
