#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>

#include "platform/system/file.hpp"

/// A process beside the run. It reads files that may crash their reader, keep it in a loop or fill
/// its memory. It is forked at the first question, answers one question after the other, and is
/// replaced when a question has ended it.
class HelperProcess {
 public:
  /// Answers a question about an open file.
  using Work = std::string (*)(int fd, const std::string& question);

  /// Bytes.
  static constexpr size_t longest_answer = 1024UL * 1024;

  /// `memory` is the number of bytes that it may use in addition to the run's memory at the time of
  /// the fork.
  HelperProcess(Work work, size_t memory) : work_(work), memory_(memory) {}
  HelperProcess(const HelperProcess&) = delete;
  HelperProcess& operator=(const HelperProcess&) = delete;
  ~HelperProcess() { end(); }

  /// The answer of `work` in that process, as bytes that are not to be trusted. Nothing when the
  /// work takes more than the given processor time or memory, crashes, throws, or has an answer
  /// longer than 1 MiB. Fails the run (messages.hpp) when the machine cannot provide what the
  /// process is granted.
  std::optional<std::string> ask(int fd, const std::string& question,
                                 std::chrono::microseconds processor_time);

 private:
  bool start();
  bool end();
  std::optional<std::string> ask_once(int fd, const std::string& question,
                                      std::chrono::microseconds processor_time);

  Work work_;
  size_t memory_;
  pid_t process_ = -1;     ///< -1: no process
  FileDescriptor socket_;  ///< open while there is a process
};
