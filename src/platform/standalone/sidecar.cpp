#include "platform/standalone/sidecar.hpp"

#include <algorithm>
#include <optional>
#include <string_view>

#include "platform/file.hpp"
#include "platform/text.hpp"

namespace {

/// Empty when a read fails: half a sidecar could hide that the rest says otherwise.
std::string read_whole(int fd) {
  std::string content(4 * 1024, '\0');  // most sidecars are shorter
  size_t length = 0;
  for (;;) {
    const std::optional<size_t> count =
        read_fully(fd, content.data() + length, content.size() - length);
    if (!count) {
      return {};
    }
    length += *count;
    if (length < content.size()) {
      content.resize(length);
      return content;
    }
    content.resize(2 * content.size());
  }
}

/// The index of a group, which is new when it was not named before.
int32_t group_index(FileMetadata& metadata, std::string_view name) {
  if (name.empty()) {
    return no_group;
  }
  auto& groups = metadata.groups;
  const auto found = std::find(groups.begin(), groups.end(), name);
  const auto index = static_cast<int32_t>(found - groups.begin());
  if (found == groups.end()) {
    groups.emplace_back(name);
  }
  return index;
}

bool is_group_line(std::string_view text) {
  return text.starts_with('[') && text.ends_with(']');
}

}  // namespace

FileMetadata read_sidecar(int directory, const std::string& media_name) {
  FileMetadata metadata;
  const FileDescriptor file = open_regular_file(directory, (media_name + ".metadata").c_str());
  if (!file.is_open()) {
    return metadata;
  }
  const std::string content = read_whole(file.get());
  int32_t group = no_group;
  for (std::string_view rest = content; !rest.empty();) {
    const std::string_view line = rest.substr(0, rest.find('\n'));
    rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    const std::string_view text = strip_blanks(chomp(line));
    if (text.empty() || text.front() == '#') {
      continue;
    }
    if (is_group_line(text)) {
      group = group_index(metadata, strip_blanks(text.substr(1, text.size() - 2)));
    } else if (const auto pair = divide_name_equ_value_pair(text)) {
      metadata.entries.push_back({std::string(pair->name), std::string(pair->value), group});
    }
  }
  return metadata;
}
