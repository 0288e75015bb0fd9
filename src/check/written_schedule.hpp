#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "check/finding.hpp"
#include "check/source_text.hpp"
#include "schedule/schedule.hpp"

// A schedule file as it is written, beside the schedule that the reader makes of it.

struct WrittenValue {
  std::string text;
  Place place;
};

/// An item's or a block's section that was stored.
struct WrittenSection {
  Place place;
  std::map<std::string, WrittenValue> values;  ///< by key
  uint64_t start = no_time;                    ///< schedule seconds, as read
  uint64_t end = no_time;

  /// Where the value of a key stands, or the section where it has none.
  Place place_of(const std::string& key) const {
    const auto found = values.find(key);
    return found != values.end() ? found->second.place : place;
  }
  std::string text_of(const std::string& key) const {
    const auto found = values.find(key);
    return found != values.end() ? found->second.text : std::string();
  }
};

struct WrittenSchedule {
  explicit WrittenSchedule(std::string content) : source(std::move(content)) {}

  SourceText source;
  Schedule schedule;
  std::vector<WrittenSection> items;  ///< in the order of the file; of one start the last airs
  std::vector<WrittenSection> blocks;
  std::map<std::string, Place> default_paths;  ///< of default items, where they first stand

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
