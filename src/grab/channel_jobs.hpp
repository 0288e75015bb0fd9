#pragma once

#include <sys/types.h>

#include <cstdint>
#include <deque>
#include <optional>

#include "grab/channel_process.hpp"
#include "platform/system/file.hpp"

/// A channel's process, and the file without a name that it writes to.
struct ChannelJob {
  const GuideChannel* channel;
  FileDescriptor file;
  pid_t process;
  std::optional<ChannelEnd> end;  ///< nothing: not known yet
};

using ChannelJobs = std::deque<ChannelJob>;

/// Starts a process for the channel. It ends when this process ends. It closes its copies of the
/// other jobs' descriptors. Nothing, with errno set, when the machine has no room for it.
std::optional<ChannelJob> start_job(const ChannelWork& work, ChannelJobs& others);

/// Waits for the process and sets `end`. A process that was ended by a signal has failed. False,
/// with errno set, when waiting fails.
bool await_end(ChannelJob& job);

/// Copies the programmes from a channel's file. Returns their number. Nothing, with errno set, when
/// copying fails or the file does not match its head.
std::optional<uint64_t> copy_programmes(int from, int to);
