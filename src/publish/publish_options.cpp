#include "publish/publish_options.hpp"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>

namespace {

constexpr const char* about =
    "Usage: nv8x_schedule_publish [OPTION]... [CHANNEL]...\n"
    "Publishes the guide pages of the station's channels, or of these, into the web\n"
    "folder. A page is only replaced by a whole new one that the guards let pass.\n"
    "\n";
constexpr const char* exit_status =
    "\n"
    "The exit status is 0 if all pages are published or unchanged, 1 if one was\n"
    "refused or failed, and 2 for a wrong command line or configuration.\n";

constexpr int most_jobs = 1024;

bool take_jobs(PublishCommand& command, const char* value) {
  if (!parse_whole_number(value, command.jobs) || command.jobs < 1 || command.jobs > most_jobs) {
    std::fprintf(stderr, "%s: --jobs: '%s' is not a number from 1 to %d\n", publisher, value,
                 most_jobs);
    return false;
  }
  return true;
}

struct PublishOption {
  OptionInfo info;
  /// False, after a message, when the value is wrong.
  bool (*take)(PublishCommand& command, const char* value) = nullptr;
};

constexpr std::array<PublishOption, 10> options = {{
    {{"config", "FILE", "the configuration of the station (/etc/nv8x/station.conf)", Offer::files},
     set_text<&PublishCommand::config_file>},
    {{"jobs", "N", "channels worked on at a time (as many as processors)"}, take_jobs},
    {{"force", nullptr, "publish even what the guards refuse"}, set_flag<&PublishCommand::force>},
    {{"dry-run", nullptr, "show what would be published, and write nothing"},
     set_flag<&PublishCommand::dry_run>},
    {{"json", nullptr, "print a report on each page as JSON"}, set_flag<&PublishCommand::json>},
    {{"check-config", nullptr, "only check the configuration, and print all mistakes"},
     set_flag<&PublishCommand::check_config>},
    {{"print-path-unit", nullptr, "print a unit of systemd that watches the schedules"},
     set_flag<&PublishCommand::print_path_unit>},
    {{"cgi", nullptr, "answer a web server; QUERY_STRING has channel=ID and format=NAME"},
     set_flag<&PublishCommand::cgi>},
    {{"help", nullptr, "print this and exit", Offer::nothing, Use::alone}},
    {{"version", nullptr, "print the version and exit", Offer::nothing, Use::alone}},
}};

}  // namespace

ProgramInfo publish_program() {
  return {.name = publisher,
          .options = options_of(options),
          .operands = Offer::guide_channels,
          .version = NV8X_VERSION,
          .about = about,
          .status = exit_status,
          .usage_status = could_not_begin,
          .config_option = "config",
          .config_file = station_config_path};
}

std::optional<PublishCommand> parse_publish_command(int argc, char** argv, int& status) {
  PublishCommand command;
  command.jobs = static_cast<int>(std::clamp<long>(sysconf(_SC_NPROCESSORS_ONLN), 1, most_jobs));
  auto channels = parse_command_line(
      publish_program(), argc, argv,
      [&](size_t place, const char* value) { return options.at(place).take(command, value); },
      status);
  if (!channels) {
    return std::nullopt;
  }
  command.only = *std::move(channels);
  if ((command.cgi || command.print_path_unit) && !command.only.empty()) {
    status = refuse_command_line(publish_program(), "this option takes no channel");
    return std::nullopt;
  }
  return command;
}
