#include <dirent.h>
#include <unistd.h>

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "checks/named_files.hpp"
#include "platform/syntax/text.hpp"

namespace {

constexpr std::string_view comment_mark = " # ";
constexpr std::string_view address_start = "file://";

bool is_quoted(std::string_view path) {
  return path.size() > 2 && path.front() == path.back() &&
         (path.front() == '"' || path.front() == '\'');
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
  if (is_quoted(path)) {
    return odd(0, "the quotes become part of the path",
               std::string(path.substr(1, path.size() - 2)));
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
