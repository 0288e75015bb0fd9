#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>
#include <vector>

#include "check/check_options.hpp"
#include "check/explain.hpp"
#include "checks/finding.hpp"
#include "checks/schedule_check.hpp"
#include "platform/system/early_end.hpp"
#include "platform/system/messages.hpp"
#include "platform/system/output.hpp"
#include "platform/system/run_limits.hpp"
#include "platform/time/calendar.hpp"
#include "schedule/watchdog.hpp"

namespace {

constexpr int something_found = 1;
constexpr int could_not_check = 2;  // never means findings

int explain_all(const CheckCommand& command, const std::string& moment, const FileFindings& zone) {
  int status = EXIT_SUCCESS;
  for (const Finding& finding : zone.findings) {
    std::fprintf(stderr, "nv8x_schedule_check: %s\n", finding.text.c_str());
  }
  std::string stories;
  for (const std::string& file : command.files) {
    std::string error;
    const auto story = explain_moment(file, moment, command.options, error);
    if (story && command.json) {
      stories += (stories.empty() ? "" : ",\n ") + json_of_story(file, *story);
    } else if (story) {
      print_output(*story);
    } else {
      std::fprintf(stderr, "nv8x_schedule_check: %s: %s\n", file.c_str(), error.c_str());
      status = could_not_check;
    }
  }
  if (command.json) {
    print_output("[" + stories + "]\n");
  }
  finish_output();
  return status;
}

bool has_failing_finding(const FileFindings& file, bool strict) {
  return std::ranges::any_of(file.findings, [&](const Finding& finding) {
    return strict || info_of(finding.kind).severity == Severity::error;
  });
}

int check_all(const CheckCommand& command, const FileFindings& zone) {
  int status = EXIT_SUCCESS;
  std::vector<FileFindings> found;
  if (!zone.findings.empty()) {
    found.push_back(zone);
  }
  for (const std::string& file : command.files) {
    if (!check_schedule_file(file, command.options, found.emplace_back())) {
      status = could_not_check;
    }
  }
  for (const FileFindings& file : found) {
    if (has_failing_finding(file, command.strict) && status == EXIT_SUCCESS) {
      status = something_found;
    }
    if (!command.json) {
      print_output(text_of(file, command.max_findings));
    }
  }
  if (command.json) {
    print_output(json_of(found));
  }
  finish_output();
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  set_early_end({"nv8x_schedule_check", could_not_check});
  end_early_at_alarm(watchdog_seconds);
  prepare_standard_streams();
  limit_memory();
  int status = EXIT_SUCCESS;
  const std::optional<CheckCommand> command = parse_check_command(argc, argv, status);
  if (!command) {
    return status;
  }
  if (!settle_local_zone()) {
    fail_run("Unable to read the time zone: %s", std::strerror(errno));
  }
  FileFindings zone{.file = "TZ"};
  check_zone(zone);
  return command->moment ? explain_all(*command, *command->moment, zone)
                         : check_all(*command, zone);
}
