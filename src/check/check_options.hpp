#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "checks/schedule_check.hpp"
#include "platform/syntax/command_line.hpp"

struct CheckCommand {
  CheckOptions options;
  bool json = false;
  bool strict = false;                ///< warnings set the exit status too
  size_t max_findings = 100;          ///< maximum of findings printed for each file
  std::optional<std::string> moment;  ///< of --explain
  const char* of_findings = nullptr;  ///< an option that is given and is only about findings
  std::vector<std::string> files;
};

/// The checker and its table of options.
ProgramInfo check_program();

/// Parses the command line. Returns nothing if the program must end at once with `status`.
std::optional<CheckCommand> parse_check_command(int argc, char** argv, int& status);
