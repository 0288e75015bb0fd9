#pragma once

#include <cstdint>
#include <ctime>
#include <functional>
#include <string>

#include "platform/system/file.hpp"
#include "station/station_config.hpp"

/// The status of a channel's process.
enum class ChannelEnd : int {
  done = 0,
  failed = 1,   ///< because of its files; the message is printed
  lacking = 2,  ///< the machine was short of something, or a read failed
};

enum class Attempt { first, last };

/// What a channel's process works on.
struct ChannelWork {
  const char* program;  ///< begins each message
  const StationChannel& channel;
  time_t now;
  Attempt attempt;  ///< shortages and read errors are reported only in the last attempt
};

/// What the process does. It may write to the file, which the parent reads at the end. It may end
/// the process with the functions below.
using ChannelTask = std::function<void(const ChannelWork& work, int file)>;

/// The whole life of a channel's process. It works in the channel's zone and folder, carries out
/// the task and ends with a ChannelEnd. Warnings of the passes are printed on standard error after
/// the channel's id, each text once.
[[noreturn]] void work_on_channel(const ChannelWork& work, const ChannelTask& task, int file);

// For tasks.

/// Prints a message on standard error, after the program's name and the channel's id.
void print_channel_message(const char* text);

/// The channel has failed because of its files.
[[noreturn]] void fail_channel(const std::string& reason);

/// Writes to the channel's file, or ends the process because the machine has no room.
void write_channel_file(int file, std::string_view text);

/// The place in the channel's file, from its beginning. An error ends the process, as above.
uint64_t place_in_channel_file(int file);

/// Moves to a place in the channel's file, from its beginning.
void seek_channel_file(int file, long offset);
