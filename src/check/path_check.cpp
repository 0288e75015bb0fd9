#include "check/path_check.hpp"

#include <unistd.h>

size_t comment_behind_path(std::string_view path) {
  return path.find(" # ");
}

void check_path(const std::string& path, Place place, bool with_media,
                std::vector<Finding>& findings) {
  const size_t mark = comment_behind_path(path);
  if (mark != std::string::npos && !(with_media && access(path.c_str(), F_OK) == 0)) {
    findings.push_back(
        {FindingKind::comment_behind_value,
         {place.line, place.column + static_cast<int64_t>(mark) + 1},
         "a comment after a path becomes part of the path; put the comment on a line of its own"});
  }
}
