#include "platform/standalone/packed_tags.hpp"

#include <cstdint>
#include <cstring>
#include <utility>

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

}  // namespace

std::string pack_tags(const TagsRead& result) {
  std::string packed(1, static_cast<char>(result.outcome));
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
  TagsRead result{*outcome, {}};
  packed.remove_prefix(1);
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
