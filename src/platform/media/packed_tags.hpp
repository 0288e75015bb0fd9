#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

/// The key is the name. Several values of one name are in the file's order.
using Tags = std::multimap<std::string, std::string>;

/// The outcome of reading a file's tags.
enum class TagsOutcome : char {
  read = 'r',
  failed = 'f',  ///< something of the file could not be read
  spent = 's',   ///< it would take more than the budget
};

struct TagsRead {
  TagsOutcome outcome = TagsOutcome::read;
  Tags tags;             ///< empty unless the outcome is `read`
  std::string left_out;  ///< names of tags that are too large, separated by commas
};

/// Adds a name to the list of tags that are left out. Long lists and names are shortened to fit a
/// message.
void add_left_out(std::string& left_out, std::string_view name);

/// Removes the largest tags until the rest, when packed, has at most that many bytes.
void leave_out_largest(TagsRead& result, size_t most_bytes);

/// Packs the result for another process: the outcome and, if the tags were read, the list of those
/// left out and the name and value of each tag. A length comes before each text.
std::string pack_tags(const TagsRead& result);

/// The reverse. The bytes may be anything. Nothing when they are not a valid result of pack_tags.
std::optional<TagsRead> unpack_tags(std::string_view packed);
