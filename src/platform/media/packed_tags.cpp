#include "platform/media/packed_tags.hpp"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <functional>
#include <utility>
#include <vector>

namespace {

void pack_text(std::string& packed, const std::string& text) {
  const uint64_t size = text.size();
  packed.append(reinterpret_cast<const char*>(&size), sizeof(size));
  packed += text;
}

std::optional<std::string> unpack_text(std::string_view& packed) {
  uint64_t size = 0;
  if (packed.size() < sizeof(size)) {
    return std::nullopt;
  }
  std::memcpy(&size, packed.data(), sizeof(size));
  packed.remove_prefix(sizeof(size));
  if (size > packed.size()) {
    return std::nullopt;
  }
  std::string text(packed.substr(0, size));
  packed.remove_prefix(size);
  return text;
}

std::optional<TagsOutcome> outcome_of(char packed) {
  for (const TagsOutcome outcome : {TagsOutcome::read, TagsOutcome::failed, TagsOutcome::spent}) {
    if (packed == static_cast<char>(outcome)) {
      return outcome;
    }
  }
  return std::nullopt;
}

/// Maximum length of the list of tags that are left out.
constexpr size_t most_left_out = 300;

size_t packed_size(const Tags::value_type& tag) {
  return 2 * sizeof(uint64_t) + tag.first.size() + tag.second.size();
}

}  // namespace

void add_left_out(std::string& left_out, std::string_view name) {
  constexpr size_t longest_name = 40;
  constexpr size_t longest_list = 200;
  constexpr std::string_view more = ", ...";
  if (left_out.ends_with(more)) {
    return;
  }
  if (left_out.size() > longest_list) {
    left_out += more;
    return;
  }
  left_out += left_out.empty() ? "" : ", ";
  for (const char c : name.substr(0, longest_name)) {
    left_out += c >= ' ' && c <= '~' ? c : '?';
  }
}

void leave_out_largest(TagsRead& result, size_t most_bytes) {
  size_t size = most_left_out;
  std::vector<Tags::iterator> tags;
  for (auto tag = result.tags.begin(); tag != result.tags.end(); ++tag) {
    tags.push_back(tag);
    size += packed_size(*tag);
  }
  std::ranges::stable_sort(tags, std::greater(),
                           [](const Tags::iterator& tag) { return packed_size(*tag); });
  for (const Tags::iterator& tag : tags) {
    if (size <= most_bytes) {
      break;
    }
    size -= packed_size(*tag);
    add_left_out(result.left_out, tag->first);
    result.tags.erase(tag);
  }
}

std::string pack_tags(const TagsRead& result) {
  std::string packed(1, static_cast<char>(result.outcome));
  if (result.outcome != TagsOutcome::read) {
    return packed;
  }
  pack_text(packed, result.left_out);
  for (const auto& [name, value] : result.tags) {
    pack_text(packed, name);
    pack_text(packed, value);
  }
  return packed;
}

std::optional<TagsRead> unpack_tags(std::string_view packed) {
  const std::optional<TagsOutcome> outcome =
      packed.empty() ? std::nullopt : outcome_of(packed.front());
  if (!outcome || (outcome != TagsOutcome::read && packed.size() > 1)) {
    return std::nullopt;
  }
  TagsRead result{*outcome, {}, {}};
  packed.remove_prefix(1);
  if (*outcome == TagsOutcome::read) {
    std::optional<std::string> left_out = unpack_text(packed);
    if (!left_out) {
      return std::nullopt;
    }
    result.left_out = std::move(*left_out);
  }
  while (!packed.empty()) {
    std::optional<std::string> name = unpack_text(packed);
    std::optional<std::string> value = name ? unpack_text(packed) : std::nullopt;
    if (!value) {
      return std::nullopt;
    }
    result.tags.emplace(std::move(*name), std::move(*value));
  }
  return result;
}
