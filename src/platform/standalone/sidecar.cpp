#include "platform/standalone/sidecar.hpp"

#include <algorithm>
#include <cstdio>
#include <optional>
#include <string_view>
#include <unordered_map>

#include "platform/syntax/text.hpp"
#include "platform/system/file.hpp"

namespace {

/// Ten thousand lines of a hundred bytes; in memory short lines take some fifty times their length.
constexpr size_t largest_sidecar = 1024UL * 1024;

/// The whole file; nothing when it is too large. Empty when a read fails: half a sidecar could hide
/// that the rest says otherwise.
std::optional<std::string> read_whole(int fd) {
  std::string content(4 * 1024, '\0');  // most sidecars are shorter
  size_t length = 0;
  for (;;) {
    const std::optional<size_t> count =
        read_fully(fd, content.data() + length, content.size() - length);
    if (!count) {
      return std::string();
    }
    length += *count;
    if (length > largest_sidecar) {
      return std::nullopt;
    }
    if (length < content.size()) {
      content.resize(length);
      return content;
    }
    content.resize(2 * content.size());
  }
}

/// Groups by name; the names stand in the file's content.
using KnownGroups = std::unordered_map<std::string_view, int32_t>;

/// The index of a group, which is new when it was not named before.
int32_t group_index(FileMetadata& metadata, KnownGroups& known_groups, std::string_view name) {
  if (name.empty()) {
    return no_group;
  }
  const auto new_index = static_cast<int32_t>(metadata.groups.size());
  const auto [group, is_new] = known_groups.try_emplace(name, new_index);
  if (is_new) {
    metadata.groups.emplace_back(name);
  }
  return group->second;
}

bool is_group_line(std::string_view text) {
  return text.starts_with('[') && text.ends_with(']');
}

}  // namespace

FileMetadata read_sidecar(int directory, const std::string& media_name) {
  FileMetadata metadata;
  const std::string name = media_name + ".metadata";
  const FileDescriptor file = open_optional_file(directory, name.c_str());
  if (!file.is_open()) {
    return metadata;
  }
  const std::optional<std::string> content = read_whole(file.get());
  if (!content) {
    std::fprintf(stderr, "WARNING: '%s' is larger than 1 MiB and not read\n", name.c_str());
    return metadata;
  }
  KnownGroups known_groups;
  int32_t group = no_group;
  for (std::string_view rest = *content; !rest.empty();) {
    const std::string_view text = strip_blanks(chomp(take_line(rest)));
    if (text.empty() || text.front() == '#') {
      continue;
    }
    if (is_group_line(text)) {
      group = group_index(metadata, known_groups, strip_blanks(text.substr(1, text.size() - 2)));
    } else if (const auto pair = divide_name_equ_value_pair(text)) {
      metadata.entries.push_back({std::string(pair->name), std::string(pair->value), group});
    }
  }
  return metadata;
}
