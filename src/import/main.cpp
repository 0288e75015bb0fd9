#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "import/aired_table.hpp"
#include "import/export_table.hpp"
#include "import/import_options.hpp"
#include "import/import_table.hpp"
#include "platform/system/early_end.hpp"
#include "platform/system/messages.hpp"
#include "platform/system/output.hpp"
#include "platform/time/calendar.hpp"
#include "schedule/watchdog.hpp"
#include "station/early_end.hpp"
#include "station/replaced_file.hpp"

namespace {

constexpr int mistakes_found = 1;
constexpr int could_not_import = 2;

int report_failure(const std::string& what, const std::string& why) {
  std::fprintf(stderr, "nv8x_schedule_import: %s: %s\n", what.c_str(), why.c_str());
  return could_not_import;
}

/// Replaces the file of --output, or prints.
int write_result(const ImportCommand& command, const std::string& text) {
  if (command.output.empty()) {
    print_output(text);
    return EXIT_SUCCESS;
  }
  ReplacedFile file(command.output, NewMode::as_before);
  if (!file.is_open() || !file.write(text) || !file.publish()) {
    return report_failure(command.output,
                          std::string("cannot be written: ") + std::strerror(errno));
  }
  return EXIT_SUCCESS;
}

/// Whether writing the output would destroy what was read.
bool would_replace_source(const ImportCommand& command) {
  std::error_code ignored;
  const std::string& source = command.schedule.empty() ? command.table : command.schedule;
  return std::filesystem::equivalent(command.output, source, ignored);
}

void print_findings(const FileFindings& found, const ImportCommand& command) {
  const std::string text =
      command.json ? json_of({&found, 1}) : text_of(found, command.max_findings);
  std::fputs(text.c_str(), stderr);
}

int run_export(const ImportCommand& command) {
  const char separator = command.form.separator != 0 ? command.form.separator : ',';
  std::string error;
  Schedule schedule;
  if (!read_for_table(schedule, command.schedule, error)) {
    return report_failure(command.schedule, error);
  }
  if (!command.aired) {
    std::vector<std::string> warnings;
    const std::string table = table_of(schedule, separator, warnings);
    for (const std::string& warning : warnings) {
      report_failure(command.schedule, warning);
    }
    return write_result(command, table);
  }
  return write_result(command,
                      table_of_airing(schedule, command.schedule, separator, command.report_time));
}

int run_import(const ImportCommand& command) {
  FileFindings found;
  std::string error;
  const std::optional<ImportedTable> imported = import_table(command, found, error);
  if (!error.empty()) {
    return report_failure(command.table, error);
  }
  print_findings(found, command);
  if (!imported) {
    return mistakes_found;
  }
  for (const MadeSidecar& sidecar : imported->sidecars) {
    if (!write_sidecar(sidecar)) {
      return report_failure(sidecar.path,
                            std::string("cannot be written: ") + std::strerror(errno));
    }
  }
  return write_result(command, imported->schedule);
}

int run(const ImportCommand& command) {
  if (would_replace_source(command)) {
    return report_failure(command.output, "is what is read; name another file");
  }
  if (!command.template_type.empty()) {
    const char separator = command.form.separator != 0 ? command.form.separator : ',';
    return write_result(command, example_table(command.template_type, separator));
  }
  return command.schedule.empty() ? run_import(command) : run_export(command);
}

}  // namespace

int main(int argc, char** argv) {
  prepare_standard_streams();
  prepare_for_early_end("nv8x_schedule_import", could_not_import);
  end_early_at_alarm(watchdog_seconds);
  int status = EXIT_SUCCESS;
  if (!settle_local_zone()) {
    fail_run("Unable to read the time zone: %s", std::strerror(errno));
  }
  const std::optional<ImportCommand> command = parse_import_command(argc, argv, status);
  if (!command) {
    return status;
  }
  status = run(*command);
  finish_output();
  return status;
}
