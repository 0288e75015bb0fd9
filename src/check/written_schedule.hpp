#pragma once

#include <algorithm>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "check/finding.hpp"
#include "check/source_text.hpp"
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
  bool is_broken = false;  ///< it runs into the next one and gets no more findings

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

struct WrittenSchedule {
  explicit WrittenSchedule(std::string content) : source(std::move(content)) {}

  SourceText source;
  Schedule schedule;
  std::vector<WrittenSection>
      items;  ///< in the order of the file; of several with one start, the last airs
  std::vector<WrittenSection> blocks;
  std::map<std::string, Place>
      default_paths;  ///< of default items, each with the first place that names it

  /// The last one that starts there, or null.
  const WrittenSection* item_at(uint64_t start) const {
    return section_at(item_numbers, items, start);
  }
  const WrittenSection* block_at(uint64_t start) const {
    return section_at(block_numbers, blocks, start);
  }

  std::map<uint64_t, size_t> item_numbers;  ///< by start
  std::map<uint64_t, size_t> block_numbers;

 private:
  static const WrittenSection* section_at(const std::map<uint64_t, size_t>& numbers,
                                          const std::vector<WrittenSection>& sections,
                                          uint64_t start) {
    const auto found = numbers.find(start);
    return found != numbers.end() ? &sections[found->second] : nullptr;
  }
};
