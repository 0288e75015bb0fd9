#pragma once

#include <cstddef>
#include <ctime>
#include <optional>
#include <string>

#include "import/read_table.hpp"
#include "import/table_reader.hpp"
#include "platform/syntax/command_line.hpp"

struct ImportCommand {
  std::string table = "-";
  TableForm form;
  TableOptions rows;
  std::string output;         ///< empty: standard output
  std::string sidecars;       ///< folder; empty: no sidecars
  std::string template_type;  ///< print a table of examples; empty: no
  std::string schedule;       ///< of --export; empty: a table is read
  bool aired = false;         ///< export what airs, not what is written
  bool json = false;
  bool strict = false;  ///< warnings count as errors
  bool media = true;    ///< look at the media files
  size_t max_findings = 100;
  time_t report_time = 0;  ///< calendar time
};

/// The importer and its table of options.
ProgramInfo import_program();

/// Parses the command line. Returns nothing if the program must end at once with `status`.
std::optional<ImportCommand> parse_import_command(int argc, char** argv, int& status);
