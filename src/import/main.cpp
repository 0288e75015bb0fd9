#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>

#include "import/import_failures.hpp"
#include "import/import_options.hpp"
#include "import/import_table.hpp"
#include "platform/system/messages.hpp"
#include "platform/system/output.hpp"
#include "platform/system/run_limits.hpp"
#include "platform/time/calendar.hpp"

namespace {

constexpr int mistakes_found = 1;

int report_failure(const std::string& what, const std::string& why) {
  std::fprintf(stderr, "nv8x_schedule_import: %s: %s\n", what.c_str(), why.c_str());
  return could_not_import;
}

void print_findings(const FileFindings& found, const ImportCommand& command) {
  const std::string text =
      command.json ? json_of({&found, 1}) : text_of(found, command.max_findings);
  std::fputs(text.c_str(), stderr);
}

int run_import(const ImportCommand& command) {
  FileFindings found;
  std::string error;
  const std::optional<std::string> schedule = import_table(command, found, error);
  if (!error.empty()) {
    return report_failure(command.table, error);
  }
  print_findings(found, command);
  if (!schedule) {
    return mistakes_found;
  }
  print_output(*schedule);
  return EXIT_SUCCESS;
}

}  // namespace

int main(int argc, char** argv) {
  report_import_failures();
  prepare_standard_streams();
  limit_memory();
  int status = EXIT_SUCCESS;
  if (!settle_local_zone()) {
    fail_run("Unable to read the time zone: %s", std::strerror(errno));
  }
  const std::optional<ImportCommand> command = parse_import_command(argc, argv, status);
  if (!command) {
    return status;
  }
  status = run_import(*command);
  finish_output();
  return status;
}
