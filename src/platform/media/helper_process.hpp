#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>

#include "platform/system/file.hpp"

/// A process beside the run in which files are read that may crash, spin or fill the memory of what
/// reads them. It is forked when it is first asked, answers one question after the other, and is
/// replaced when a question was its end.
class HelperProcess {
 public:
  /// Answers a question about an open file.
  using Work = std::string (*)(int fd, const std::string& question);

  /// Bytes.
  static constexpr size_t longest_answer = 1024UL * 1024;

  /// `memory` is what it may claim beyond what the run has when it is forked, in bytes.
  HelperProcess(Work work, size_t memory) : work_(work), memory_(memory) {}
  HelperProcess(const HelperProcess&) = delete;
  HelperProcess& operator=(const HelperProcess&) = delete;
  ~HelperProcess() { end(); }

  /// What `work` answers there, as bytes that are not to be trusted. Nothing when that takes more
  /// than the processor time given or the memory, crashes, throws or is longer than a MiB. Fails
  /// the run (messages.hpp) when the machine does not have what the process is granted.
  std::optional<std::string> ask(int fd, const std::string& question,
                                 std::chrono::microseconds processor_time);

 private:
  bool start();
  bool end();
  std::optional<std::string> ask_once(int fd, const std::string& question,
                                      std::chrono::microseconds processor_time);

  Work work_;
  size_t memory_;
  pid_t process_ = -1;     ///< -1: not there
  FileDescriptor socket_;  ///< open while it is
};
