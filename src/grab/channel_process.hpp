#pragma once

#include <cstdint>
#include <ctime>

#include "grab/channel_programmes.hpp"
#include "grab/guide_config.hpp"
#include "platform/system/file.hpp"

/// The head of a channel's file, in front of the programmes. It is written last.
struct ProgrammesHead {
  uint64_t programmes;  ///< their number
  uint64_t bytes;       ///< of their text, which follows the head
};

/// The status of a channel's process.
enum class ChannelEnd : int {
  done = 0,
  failed = 1,   ///< because of its files; the message is printed
  lacking = 2,  ///< the machine was short of something, or a read failed
};

enum class Attempt { first, last };

struct ChannelWork {
  const GuideChannel& channel;
  GuideSpan span;
  time_t now;
  Attempt attempt;  ///< shortages and read errors are reported only in the last attempt
};

/// The whole life of a channel's process. It works in the channel's zone and folder, writes the
/// head and the programmes to the file, and ends with a ChannelEnd. Warnings of the passes are
/// printed on standard error after the channel's id, each text once.
[[noreturn]] void work_on_channel(const ChannelWork& work, const FileDescriptor& file);
