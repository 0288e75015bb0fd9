#include "platform/time/known_zone.hpp"

#include <fcntl.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>

#include "platform/syntax/text.hpp"
#include "platform/system/file.hpp"

namespace {

bool is_letter(char c) {
  return to_lower(c) >= 'a' && to_lower(c) <= 'z';
}

/// Whether the zone is a name and an offset. The name has at least three letters, or is any text in
/// angle brackets.
bool is_written_out(std::string_view zone) {
  const bool has_brackets = zone.starts_with('<');
  const size_t name_begin = has_brackets ? 1 : 0;
  const size_t name_end =
      has_brackets ? zone.find('>')
                   : static_cast<size_t>(std::ranges::find_if_not(zone, is_letter) - zone.begin());
  if (name_end == std::string_view::npos) {
    return false;
  }
  std::string_view offset = zone.substr(name_end + name_begin);
  if (offset.starts_with('+') || offset.starts_with('-')) {
    offset.remove_prefix(1);
  }
  return name_end - name_begin >= 3 && !offset.empty() && is_digit(offset.front());
}

bool is_zone_file(std::string_view zone) {
  const char* folder = std::getenv("TZDIR");
  std::string path;
  if (!zone.starts_with('/')) {
    path = folder != nullptr ? folder : "/usr/share/zoneinfo";
    path += '/';
  }
  path += zone;
  const FileDescriptor file = open_optional_file(AT_FDCWD, path.c_str());
  std::array<char, 4> mark{};
  return file.is_open() && read_fully(file.get(), mark.data(), mark.size()) == mark.size() &&
         std::string_view(mark.data(), mark.size()) == "TZif";
}

}  // namespace

bool is_known_zone(std::string_view zone) {
  if (zone.starts_with(':')) {
    zone.remove_prefix(1);
  }
  return !zone.empty() && (is_zone_file(zone) || is_written_out(zone));
}
