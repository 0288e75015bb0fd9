#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/syntax/command_line.hpp"
#include "station/station_config.hpp"

/// The program's name, as its messages begin.
inline constexpr const char* publisher = "nv8x_schedule_publish";

/// The exit status for a wrong command line or configuration.
inline constexpr int could_not_begin = 2;

struct PublishCommand {
  std::string config_file = station_config_path;
  int jobs = 1;          ///< maximum number of channels in work at the same time
  bool force = false;    ///< publish what the guards refuse
  bool dry_run = false;  ///< write nothing
  bool json = false;     ///< print a report on standard output
  bool cgi = false;      ///< answer a web server
  bool print_path_unit = false;
  bool check_config = false;      ///< only tell the mistakes of the configuration
  std::vector<std::string> only;  ///< ids of the channels; empty: all
};

/// The publisher and its table of options.
ProgramInfo publish_program();

/// Reads the command line. Nothing when the program must end now with `status`.
std::optional<PublishCommand> parse_publish_command(int argc, char** argv, int& status);
