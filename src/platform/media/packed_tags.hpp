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
  Tags tags;             ///< empty unless they were read
  std::string left_out;  ///< names of tags that are too large, with commas between
};

/// Adds a name to those left out; of many, or of a long one, no more than a message may hold.
void add_left_out(std::string& left_out, std::string_view name);

/// Leaves out the largest tags until the rest, packed, has no more than that many bytes.
void leave_out_largest(TagsRead& result, size_t most_bytes);

/// As bytes for another process: the outcome and, if they were read, what is left out and, for each
/// tag, name and value, all behind their lengths.
std::string pack_tags(const TagsRead& result);

/// Back again, from bytes that may be anything. Nothing when they are not just what pack_tags
/// gives.
std::optional<TagsRead> unpack_tags(std::string_view packed);
