#pragma once

#include <cstdint>
#include <ctime>

#include "grab/channel_programmes.hpp"
#include "grab/guide_config.hpp"
#include "platform/system/file.hpp"

/// Stands before the programmes in a channel's file, and is written last.
struct ProgrammesHead {
  uint64_t programmes;  ///< their number
  uint64_t bytes;       ///< of their text, which follows
};

/// The status of a channel's process.
enum class ChannelEnd : int {
  done = 0,
  failed = 1,   ///< for what its files hold; it has said so
  lacking = 2,  ///< the machine was short of something, or failed
};

enum class Attempt { first, last };

struct ChannelWork {
  const GuideChannel& channel;
  GuideSpan span;
  time_t now;
  Attempt attempt;  ///< a shortage and an error in reading are told in the last one only
};

/// The life of a channel's process: works in the channel's zone and folder, writes the head and the
/// programmes to the file, and ends with a ChannelEnd. What the passes warn of stands on standard
/// error behind the channel's id, each text once.
[[noreturn]] void work_on_channel(const ChannelWork& work, const FileDescriptor& file);
