#pragma once

#include <optional>
#include <string>

#include "grab/guide.hpp"
#include "platform/syntax/command_line.hpp"

enum class GrabTask { guide, channels, configure };

struct GrabCommand {
  GrabTask task = GrabTask::guide;
  std::string config_file;
  std::string output;   ///< empty: standard output
  std::string channel;  ///< the only one to use; empty: all
  GuideRun run;
};

/// The grabber and its table of options.
ProgramInfo grab_program();

/// Reads the command line, with the options of XMLTV grabbers. Nothing when the program must end
/// now with `status`.
std::optional<GrabCommand> parse_grab_command(int argc, char** argv, int& status);
