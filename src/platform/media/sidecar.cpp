#include "platform/media/sidecar.hpp"

#include <algorithm>
#include <cstdio>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "platform/syntax/text.hpp"
#include "platform/system/file.hpp"

namespace {

constexpr size_t largest_sidecar = 16UL * 1024 * 1024;

/// Entries and groups together. Short ones take about thirty times their length in memory.
constexpr size_t most_entries = 500'000;

/// The part of a file that is read: at most one byte more than the largest sidecar, so that a
/// larger one is noticed. Empty when a read fails, because the missing half may change what the
/// first half says.
std::string read_beginning(int fd) {
  std::string content(4 * 1024, '\0');  // most sidecars are shorter
  size_t length = 0;
  for (;;) {
    const std::optional<size_t> count =
        read_fully(fd, content.data() + length, content.size() - length);
    if (!count) {
      return {};
    }
    length += *count;
    if (length < content.size() || length > largest_sidecar) {
      content.resize(length);
      return content;
    }
    content.resize(std::min(2 * content.size(), largest_sidecar + 1));
  }
}

/// The complete lines within the first `size` bytes of a text.
std::string_view whole_lines(std::string_view text, size_t size) {
  const size_t last_end = text.substr(0, size).rfind('\n');
  return text.substr(0, last_end == std::string_view::npos ? 0 : last_end + 1);
}

/// Groups by name. The names point into the file's content.
using KnownGroups = std::unordered_map<std::string_view, int32_t>;

/// The index of a group. A new group is added.
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

/// Adds lines to the metadata, one after the other.
class SidecarLines {
 public:
  /// False when there are too many entries or groups.
  bool add(std::string_view text) {
    const auto pair = divide_name_equ_value_pair(text);
    const bool is_group = is_group_line(text);
    if (text.starts_with('#') || (!pair && !is_group)) {
      return true;
    }
    if (metadata_.entries.size() + metadata_.groups.size() == most_entries) {
      return false;
    }
    if (is_group) {
      group_ = group_index(metadata_, known_groups_, strip_blanks(text.substr(1, text.size() - 2)));
    } else {
      metadata_.entries.push_back({std::string(pair->name), std::string(pair->value), group_});
    }
    return true;
  }

  FileMetadata take() { return std::move(metadata_); }

 private:
  FileMetadata metadata_;
  KnownGroups known_groups_;
  int32_t group_ = no_group;
};

}  // namespace

std::optional<FileMetadata> read_sidecar(int directory, const std::string& media_name) {
  const std::string name = media_name + std::string(sidecar_suffix);
  const FileDescriptor file = open_optional_file(directory, name.c_str());
  if (!file.is_open()) {
    return std::nullopt;
  }
  const std::string content = read_beginning(file.get());
  const bool is_too_large = content.size() > largest_sidecar;
  std::string_view rest = is_too_large ? whole_lines(content, largest_sidecar) : content;
  SidecarLines lines;
  size_t count = 0;
  for (; !rest.empty(); ++count) {
    if (!lines.add(strip_blanks(take_line(rest)))) {
      std::fprintf(stderr, "WARNING: '%s' has more than %zu entries, only %zu lines are read\n",
                   name.c_str(), most_entries, count);
      return lines.take();
    }
  }
  if (is_too_large) {
    std::fprintf(stderr, "WARNING: '%s' is larger than 16 MiB, only %zu lines are read\n",
                 name.c_str(), count);
  }
  return lines.take();
}
