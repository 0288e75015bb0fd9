#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// A text that a channel's process made: a page, or programmes of a guide.
struct ChannelPart {
  std::string name;   ///< such as the name of a format
  std::string fault;  ///< why there is no such text; empty if it is there
  uint64_t offset = 0;
  uint64_t bytes = 0;
  uint64_t count = 0;         ///< of what is in it
  uint64_t microseconds = 0;  ///< that it took
};

/// What a channel's process tells its parent.
struct ChannelReport {
  std::vector<std::string> refusals;  ///< what the guards found
  std::optional<uint64_t> items;      ///< announced items; nothing: not counted
  std::vector<ChannelPart> parts;
};

/// The report stands behind the parts in the channel's file. Its place is in front of them and is
/// written last. A task begins with this, and then writes its parts.
void begin_channel_file(int file);

/// A part whose text is written next.
ChannelPart begin_channel_part(int file, std::string name);

/// The text of the part is written.
void end_channel_part(int file, ChannelPart& part);

/// Writes the report behind the parts.
void write_channel_report(int file, const ChannelReport& report);

/// Nothing, with errno set, when the file cannot be read or the report is not whole.
std::optional<ChannelReport> read_channel_report(int file);

/// The text of a part. Nothing, with errno set, when it cannot be read.
std::optional<std::string> text_of_part(int file, const ChannelPart& part);

/// Copies the text of a part. False, with errno set, when that fails.
bool copy_part(int from, const ChannelPart& part, int to);
