#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <utility>

#include "checks/finding.hpp"

/// Identifies a file, whatever path leads to it.
using FileId = std::pair<dev_t, ino_t>;

/// A schedule file, read once, so that all findings are about the same version.
struct ScheduleSource {
  std::string content;
  FileId id;
  std::string path;  ///< empty for standard input
};

/// Reads the file; "-" and "/dev/stdin" are standard input. Returns nothing on failure; `failure`
/// is the finding for it.
std::optional<ScheduleSource> read_schedule_source(const std::string& file, Finding& failure);
