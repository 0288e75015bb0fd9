#pragma once

#include <algorithm>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "checks/finding.hpp"
#include "platform/syntax/schedule_file.hpp"
#include "schedule/schedule.hpp"

// A schedule file as it is written, together with the schedule that the reader builds from it.

inline Place place_of(const SchedulePart& part) {
  return {part.line, part.column};
}

inline Place value_place_of(const SchedulePart& part) {
  return {part.line, part.value_column};
}

/// The text is a part of the file's text.
struct WrittenValue {
  const SectionKey* key;
  std::string_view text;
  Place place;
  int64_t key_column;  ///< on the same line

  Place key_place() const { return {place.line, key_column}; }
};

/// An item's or a block's section.
struct WrittenSection {
  Place place;
  std::vector<WrittenValue> values;  ///< one for each key
  uint64_t start = no_time;          ///< schedule seconds, as read
  uint64_t end = no_time;
  bool is_broken = false;      ///< it runs into the next one and gets no more findings
  bool is_noon_meant = false;  ///< it starts at "12:00 am" and was probably to start at noon

  /// The value of the key, or null.
  const WrittenValue* value_of(ScheduleKey key) const {
    const auto is_of_key = [key](const WrittenValue& value) { return value.key->key == key; };
    const auto found = std::ranges::find_if(values, is_of_key);
    return found != values.end() ? &*found : nullptr;
  }
  /// The place of the key's value, or of the section if there is none.
  Place place_of(ScheduleKey key) const {
    const WrittenValue* value = value_of(key);
    return value != nullptr ? value->place : place;
  }
  std::string text_of(ScheduleKey key) const {
    const WrittenValue* value = value_of(key);
    return value != nullptr ? std::string(value->text) : std::string();
  }
};

/// The sections of items or of blocks that the reader stored.
struct WrittenSections {
  std::vector<WrittenSection> all;      ///< in the order of the file
  std::map<uint64_t, size_t> by_start;  ///< of several with one start, the last one: it airs

  /// The one that airs from there, or null.
  const WrittenSection* at(uint64_t start) const {
    const auto found = by_start.find(start);
    return found != by_start.end() ? &all[found->second] : nullptr;
  }
};

struct WrittenSchedule {
  std::string content;  ///< of the file
  Schedule schedule = {};
  WrittenSections items = {};
  WrittenSections blocks = {};
  /// Of default items, each with the first place that names it.
  std::map<std::string, Place> default_paths = {};
  /// Lines of times that have a finding although the reader took them.
  std::set<int64_t> doubtful_times = {};
};
