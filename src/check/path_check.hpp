#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "check/finding.hpp"

/// Where in a path a comment seems to begin that is part of it; npos: nowhere. Some files have such
/// names.
size_t comment_behind_path(std::string_view path);

/// Finds such a comment in the path at that place, unless `with_media` and a file has that name.
void check_path(const std::string& path, Place place, bool with_media,
                std::vector<Finding>& findings);
