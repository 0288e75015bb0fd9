#pragma once

#include <sys/types.h>

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/system/file.hpp"
#include "station/channel_process.hpp"

/// A channel's process, and its two files without names.
struct ChannelJob {
  const StationChannel* channel;
  FileDescriptor file;      ///< what its task wrote, from the beginning
  FileDescriptor messages;  ///< its standard error
  pid_t process;
  std::optional<ChannelEnd> end;  ///< nothing: not known yet
  int signal = 0;                 ///< that ended the process, which has then failed; 0: none
  std::string said;               ///< on standard error, and how a signal ended it
};

struct ChannelRun {
  const char* program;
  std::vector<const StationChannel*> channels;
  int jobs = 1;  ///< maximum number of processes at the same time
  time_t now = 0;
};

/// Takes the job of a channel whose process has ended. It prints what that process said. Returns
/// the reason if the whole run must end, otherwise an empty text.
using TakeJob = std::function<std::string(const ChannelJob& job)>;

/// Carries out the task for each channel, in a process of its own. A channel whose process meets a
/// shortage of the machine is tried once more, alone; its end is `lacking` if that fails too. The
/// jobs are taken in the order of the channels. Returns the reason if the run cannot go on,
/// otherwise an empty text. Processes that still run then end with this one.
std::string run_channels(const ChannelRun& run, const ChannelTask& task, const TakeJob& take);

/// A file without a name in TMPDIR or /tmp. It is deleted when it is closed. Not open on failure,
/// with errno set.
FileDescriptor open_scratch_file();
