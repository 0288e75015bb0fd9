#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <utility>

#include "check/finding.hpp"

/// A file, whatever path leads to it.
using FileId = std::pair<dev_t, ino_t>;

/// A schedule file, read once: all that is said of it is of one version.
struct ScheduleSource {
  std::string content;
  FileId id;
  std::string path;  ///< empty for standard input
};

/// Reads the file; "-" and "/dev/stdin" are standard input. Nothing on failure, with what to say of
/// it in `failure`.
std::optional<ScheduleSource> read_schedule_source(const std::string& file, Finding& failure);
