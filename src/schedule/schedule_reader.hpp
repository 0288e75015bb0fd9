#pragma once

#include <cstdint>
#include <ctime>
#include <string>
#include <string_view>

#include "platform/syntax/schedule_file.hpp"
#include "platform/system/file.hpp"
#include "schedule/schedule.hpp"

/// Reads a schedule file: its type, default items, blocks and items. All times become schedule
/// seconds. `schedule` should be a fresh record. In a used record, type, items and default slots
/// are replaced, while blocks and the global default stay. Invalid parts of the file are skipped. A
/// read error counts as the end of the file and prints a warning on standard error. False, with
/// nothing changed, only when the file cannot be opened.
bool read_schedule_file(Schedule& schedule, const char* path, Links links = Links::followed);

/// The effect of a part of a file on the record.
struct PartEffect {
  /// Whether the record has taken it. This depends on the kind of the part: a type (also from the
  /// name of a defaults section), a global default, a day's default, or an item or block that
  /// ended.
  bool is_used = false;
  int default_slot = 0;      ///< of a stored default
  uint64_t start = no_time;  ///< schedule seconds, of the ended item or block, even if not stored
  uint64_t end = no_time;
};

/// Builds a record from the parts of a schedule file. The parts must come in order.
class ScheduleBuilder {
 public:
  /// Clears the record as read_schedule_file does.
  explicit ScheduleBuilder(Schedule& schedule);

  PartEffect add_part(const SchedulePart& part);

  /// Sets what the file did not say. Call this after the last part.
  void finish();

 private:
  bool take_type(const ScheduleType& type);
  void begin_section(const SchedulePart& part, PartEffect& effect);
  void add_entry(const SchedulePart& part, PartEffect& effect);
  void set_item_value(ScheduleKey key, std::string_view value);
  void set_block_value(ScheduleKey key, std::string_view value);
  void set_default(const SchedulePart& part, PartEffect& effect);
  void store_item(PartEffect& effect);
  void store_block(PartEffect& effect);
  uint64_t read_time(std::string_view text);

  Schedule& schedule_;
  const ScheduleType* type_ = nullptr;  ///< null until the file has said it
  ScheduleItem item_;                   ///< of the open section; the same for the block
  ScheduleBlock block_;

  /// The last time of the file. Most items start at the written end of the one before.
  struct WrittenTime {
    std::string text;
    bool is_valid = false;
    std::tm broken_down{};
    long microseconds = 0;
  };
  WrittenTime last_time_;
};
