#pragma once

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <functional>
#include <optional>
#include <string>
#include <vector>

// The command line of a program. Its options are one table. The parser, --help and the shell
// completion are made from it.

/// What a shell offers as a value.
enum class Offer {
  nothing,
  files,
  channels,        ///< numbers of the channels that have a render-manager file
  guide_channels,  ///< ids of the channels in the station's configuration
  words,           ///< the words listed with the option
};

enum class Use {
  once,
  repeated,
  alone,  ///< it prints something and ends the program
};

/// An option: a row of a program's table.
struct OptionInfo {
  const char* name = "";        ///< without dashes
  const char* value = nullptr;  ///< name of its value in the help; null: it takes no value
  /// What it does, in one or more lines; null: shells do not offer it. It must not contain ' \ [ ]
  /// : because the shells give them a meaning.
  const char* help = nullptr;
  Offer offer = Offer::nothing;  ///< for its value
  Use use = Use::once;
  const char* words = nullptr;  ///< for Offer::words, its values separated by blanks
};

/// What the command line needs to know of a program.
struct ProgramInfo {
  const char* name;
  std::vector<OptionInfo> options;
  bool any_dashes = false;  ///< it has its own parser, and any number of dashes begins an option
  Offer operands = Offer::nothing;  ///< nothing: the program takes none
  const char* version = "";
  const char* about = "";          ///< lines of the help before the options
  const char* status = "";         ///< lines of the help after the options
  int usage_status = 2;            ///< the exit status for a wrong command line
  const char* config_option = "";  ///< the option that names the station's configuration
  const char* config_file = "";    ///< its default, as a shell's word
};

/// The options of a table. Each row has an OptionInfo `info`.
template <typename Row, size_t count>
std::vector<OptionInfo> options_of(const std::array<Row, count>& table) {
  std::vector<OptionInfo> options(count);
  std::ranges::transform(table, options.begin(), &Row::info);
  return options;
}

/// Applies the option at this place in the table. `value` is null for an option without a value.
/// False, after a message, when the value is wrong.
using ApplyOption = std::function<bool(size_t place, const char* value)>;

/// Reads a command line by the rules of getopt_long and applies its options in order. Handles
/// --help and --version. Returns the operands, or nothing when the program must end now with
/// `status`.
std::optional<std::vector<std::string>> parse_command_line(const ProgramInfo& program, int argc,
                                                           char** argv, const ApplyOption& apply,
                                                           int& status);

/// Prints what is wrong with a command line, and how to get help, on standard error. Returns the
/// exit status.
int refuse_command_line(const ProgramInfo& program, const std::string& message);

/// The help of an option in a few words, as shells show it: without the text after a semicolon or
/// in parentheses.
std::string short_help(const OptionInfo& option);

// Functions for table rows that only set a field of the program's record.

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

/// False when the text is not a decimal number of this type.
template <typename Number>
bool parse_whole_number(const char* text, Number& number) {
  const char* end = text + std::strlen(text);
  const auto result = std::from_chars(text, end, number);
  return result.ec == std::errc() && result.ptr == end && text != end;
}
