#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

/// By name; several values of one name in the file's order.
using Tags = std::multimap<std::string, std::string>;

/// What came of reading a file's tags.
enum class TagsOutcome : char {
  read = 'r',
  failed = 'f',  ///< something of the file could not be read
  spent = 's',   ///< it would take more than the budget
};

struct TagsRead {
  TagsOutcome outcome = TagsOutcome::read;
  Tags tags;  ///< empty unless they were read
};

/// As bytes for another process: the outcome and, for each tag, name and value behind their
/// lengths.
std::string pack_tags(const TagsRead& result);

/// Back again, from bytes that may be anything. Nothing when they are not just what pack_tags
/// gives.
std::optional<TagsRead> unpack_tags(std::string_view packed);
