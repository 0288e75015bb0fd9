#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

/// What a call in a process of its own may cost.
struct IsolationLimits {
  size_t memory;       ///< bytes that it may claim beyond what the run already has
  long cpu_seconds;    ///< its processor time
  size_t result_size;  ///< bytes
};

/// Calls `work` in a child process and returns its text. Nothing when that takes more than the
/// limits, or crashes, or throws: none of it reaches the caller, whose memory stays as it was.
std::optional<std::string> call_isolated(const IsolationLimits& limits,
                                         const std::function<std::string()>& work);
