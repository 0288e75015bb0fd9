#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "check/finding.hpp"

/// Where a comment seems to begin inside a path, or npos. Some files really have such names.
size_t comment_behind_path(std::string_view path);

/// Reports such a comment in the path at that place. With `with_media`, a path that exists is not
/// reported.
void check_path(const std::string& path, Place place, bool with_media,
                std::vector<Finding>& findings);
