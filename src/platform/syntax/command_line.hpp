#pragma once

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <functional>
#include <optional>
#include <string>
#include <vector>

// The command line of a program. Its options stand in one table, of which the parser, --help and
// the completion of the shells are made.

/// What a shell offers where a value stands.
enum class Offer {
  nothing,
  files,
  channels,        ///< numbers of the channels that have a render-manager file
  guide_channels,  ///< ids of the channels in the grabber's configuration
  words,           ///< those of the option
};

enum class Use {
  once,
  repeated,
  alone,  ///< it prints something and ends the program
};

/// An option: a row of a program's table.
struct OptionInfo {
  const char* name = "";        ///< without dashes
  const char* value = nullptr;  ///< what the help calls its value; null: it takes none
  /// What it does, in one or more lines; null: it is not offered. No ' \ [ ] : for the shells'
  /// sake.
  const char* help = nullptr;
  Offer offer = Offer::nothing;  ///< for its value
  Use use = Use::once;
  const char* words = nullptr;  ///< with Offer::words, its values with blanks between them
};

/// A program, as its command line needs it.
struct ProgramInfo {
  const char* name;
  std::vector<OptionInfo> options;
  bool any_dashes = false;  ///< it has rules of its own, by which any dashes begin an option
  Offer operands = Offer::nothing;  ///< nothing: the program takes none
  const char* version = "";
  const char* about = "";   ///< the help's lines before the options
  const char* status = "";  ///< those behind the options
  int usage_status = 2;     ///< the exit status for a wrong command line
};

/// The options of a table whose rows hold an OptionInfo `info` each.
template <typename Row, size_t count>
std::vector<OptionInfo> options_of(const std::array<Row, count>& table) {
  std::vector<OptionInfo> options(count);
  std::ranges::transform(table, options.begin(), &Row::info);
  return options;
}

/// Applies the option with this place in the table. `value` is null for an option without one.
/// False, after a message, when the value is wrong.
using ApplyOption = std::function<bool(size_t place, const char* value)>;

/// Reads a command line by the rules of getopt_long and applies its options in their order. Prints
/// what --help and --version ask for. The operands; nothing when the program is to end at once,
/// with `status`.
std::optional<std::vector<std::string>> parse_command_line(const ProgramInfo& program, int argc,
                                                           char** argv, const ApplyOption& apply,
                                                           int& status);

/// Says on standard error what is wrong with a command line, and how to get help. The exit status.
int refuse_command_line(const ProgramInfo& program, const std::string& message);

/// The help of an option in few words, as shells show it: without what stands behind a semicolon or
/// in parentheses.
std::string short_help(const OptionInfo& option);

// What most rows do: they set a field of the record that the command line fills.

template <auto field, typename Command>
bool set_flag(Command& command, const char*) {
  command.*field = true;
  return true;
}

template <auto field, typename Command>
bool set_text(Command& command, const char* value) {
  command.*field = value;
  return true;
}

/// False when the text is not wholly a decimal number of this type.
template <typename Number>
bool parse_whole_number(const char* text, Number& number) {
  const char* end = text + std::strlen(text);
  const auto result = std::from_chars(text, end, number);
  return result.ec == std::errc() && result.ptr == end && text != end;
}
