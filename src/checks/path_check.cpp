#include <dirent.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "checks/named_files.hpp"
#include "platform/syntax/text.hpp"

namespace {

constexpr std::string_view comment_mark = " # ";
constexpr std::string_view address_start = "file://";

/// Quotation marks, those of text processors among them.
constexpr std::array<std::string_view, 7> quotation_marks = {"\"",     "'",      "\u201c", "\u201d",
                                                             "\u201e", "\u2018", "\u2019"};

/// The path between its quotation marks, or the path itself.
std::string_view without_quotes(std::string_view path) {
  for (const std::string_view first : quotation_marks) {
    if (!path.starts_with(first)) {
      continue;
    }
    for (const std::string_view last : quotation_marks) {
      if (path.size() > first.size() + last.size() && path.ends_with(last)) {
        return path.substr(first.size(), path.size() - first.size() - last.size());
      }
    }
  }
  return path;
}

/// Whether the path ends as the names of most media do: ".mp4".
bool has_extension(std::string_view path) {
  const size_t point = path.rfind('.');
  const std::string_view extension = path.substr(std::min(point, path.size() - 1) + 1);
  return point != std::string_view::npos && !extension.empty() && !is_digit(extension.front()) &&
         extension.find_first_of(" /") == std::string_view::npos;
}

/// Where the only quotation mark stands, at the beginning or behind the extension. One behind a
/// number may stand for inches.
std::optional<size_t> place_of_lone_quote(std::string_view path) {
  const size_t mark = path.find('"');
  if (path.size() < 2 || mark == std::string_view::npos || path.rfind('"') != mark) {
    return std::nullopt;
  }
  const bool is_behind = mark + 1 == path.size() && has_extension(path.substr(0, mark));
  return mark == 0 || is_behind ? std::optional(mark) : std::nullopt;
}

/// Whether backslashes seem to separate the folders. Names may hold them too.
bool has_backslashes(std::string_view path) {
  return path.find('\\') != std::string_view::npos && path.find('/') == std::string_view::npos;
}

bool has_drive(std::string_view path) {
  const char letter = path.empty() ? ' ' : to_lower(path.front());
  return letter >= 'a' && letter <= 'z' && path.substr(1).starts_with(":\\");
}

std::string with_slashes(std::string_view path) {
  std::string text(path);
  std::ranges::replace(text, '\\', '/');
  return text;
}

/// Reads the names of a folder once. The key is the name in lower case.
const std::map<std::string, std::string>& names_in(const std::string& folder, FolderNames& known) {
  const auto [names, is_new] = known.try_emplace(folder);
  if (is_new) {
    const std::unique_ptr<DIR, int (*)(DIR*)> opened(opendir(folder.empty() ? "." : folder.c_str()),
                                                     closedir);
    // NOLINTNEXTLINE(concurrency-mt-unsafe): there is one thread
    for (const dirent* entry; opened && (entry = readdir(opened.get())) != nullptr;) {
      names->second.try_emplace(lower_case(entry->d_name), entry->d_name);
    }
  }
  return names->second;
}

}  // namespace

std::optional<PathComplaint> complaint_about_path(std::string_view path) {
  const auto odd = [&](size_t offset, const char* reason, std::string instead) {
    const std::string text = reason + std::string("; write ") + quoted(instead);
    return PathComplaint{FindingKind::odd_path, offset, text, std::move(instead)};
  };
  if (const size_t mark = path.find(comment_mark); mark != std::string_view::npos) {
    return PathComplaint{
        FindingKind::comment_behind_value, mark + 1,
        "a comment after a path becomes part of the path; put the comment on a line of its own",
        std::string(strip_blanks(path.substr(0, mark)))};
  }
  if (const std::string_view bare = without_quotes(path); bare != path) {
    return odd(0, "the quotes become part of the path", std::string(bare));
  }
  if (const auto mark = place_of_lone_quote(path)) {
    return odd(*mark, "the quote becomes part of the path",
               std::string(*mark == 0 ? path.substr(1) : path.substr(0, *mark)));
  }
  if (has_drive(path)) {
    return PathComplaint{FindingKind::odd_path,
                         0,
                         quoted(path) +
                             " is a path of another system; write the path that the "
                             "file has on this one, with '/' between the folders",
                         {}};
  }
  if (path.starts_with(address_start)) {
    return odd(0, "an address is not a path", std::string(path.substr(address_start.size())));
  }
  if (path.size() > 1 && path.ends_with(',')) {
    return odd(path.size() - 1, "the comma becomes part of the path",
               std::string(strip_blanks(path.substr(0, path.size() - 1))));
  }
  if (has_backslashes(path)) {
    return odd(path.find('\\'), "a '\\' does not separate folders", with_slashes(path));
  }
  return std::nullopt;
}

void check_path(const std::string& path, Place place, bool with_media, FileFindings& found) {
  const auto complaint = complaint_about_path(path);
  if (complaint && !(with_media && access(path.c_str(), F_OK) == 0)) {
    found.add(complaint->kind, {place.line, place.column + static_cast<int64_t>(complaint->offset)},
              complaint->text);
  }
}

std::string path_in_other_case(const std::string& path, FolderNames& known) {
  std::string real;
  for (size_t start = 0; start < path.size();) {
    const size_t end = std::min(path.find('/', start), path.size());
    const std::string name = path.substr(start, end - start);
    const std::string slash = end < path.size() ? "/" : "";
    start = end + slash.size();
    if (access((real + name).c_str(), F_OK) != 0) {
      const auto& names = names_in(real, known);
      const auto found = names.find(lower_case(name));
      if (found == names.end()) {
        return {};
      }
      real += found->second + slash;
    } else {
      real += name + slash;
    }
  }
  return real == path ? std::string() : real;
}
