#include "grab/grab_options.hpp"

#include <getopt.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "platform/system/output.hpp"

namespace {

constexpr const char* help =
    "Usage: tv_grab_nv8x [OPTION]...\n"
    "Prints an XMLTV guide of the channels in its configuration.\n"
    "\n"
    "      --days=N            days of the guide (14)\n"
    "      --offset=N          days from today to the first of them (0)\n"
    "      --output=FILE       write to FILE instead of standard output\n"
    "      --quiet             show no progress\n"
    "      --config-file=FILE  the configuration (~/.xmltv/tv_grab_nv8x.conf)\n"
    "      --configure         ask for the channels and write the configuration\n"
    "      --list-channels     print the channels alone\n"
    "      --channel=ID        one channel only\n"
    "      --jobs=N            channels worked on at a time (as many as processors)\n"
    "      --description       print what this grabber is\n"
    "      --capabilities      print what it can do\n"
    "      --version           print the version\n"
    "      --help              print this\n"
    "\n"
    "The exit status is 0 if the guide is whole, and 1 if a channel is missing, the\n"
    "guide is empty or could not be written, or the configuration or the command\n"
    "line is wrong.\n";

enum Option : int {
  days = 1,
  offset,
  output,
  quiet,
  config_file,
  configure,
  list_channels,
  channel,
  jobs,
  description,
  capabilities,
  show_version,
  show_help
};

constexpr std::array<option, 14> options = {{
    {"days", required_argument, nullptr, days},
    {"offset", required_argument, nullptr, offset},
    {"output", required_argument, nullptr, output},
    {"quiet", no_argument, nullptr, quiet},
    {"config-file", required_argument, nullptr, config_file},
    {"configure", no_argument, nullptr, configure},
    {"list-channels", no_argument, nullptr, list_channels},
    {"channel", required_argument, nullptr, channel},
    {"jobs", required_argument, nullptr, jobs},
    {"description", no_argument, nullptr, description},
    {"capabilities", no_argument, nullptr, capabilities},
    {"version", no_argument, nullptr, show_version},
    {"help", no_argument, nullptr, show_help},
    {nullptr, 0, nullptr, 0},
}};

bool take_number(int& number, int least, int most, const char* name) {
  const char* end = optarg + std::strlen(optarg);
  const auto result = std::from_chars(optarg, end, number);
  if (result.ec != std::errc() || result.ptr != end || number < least || number > most) {
    std::fprintf(stderr, "tv_grab_nv8x: --%s: '%s' is no number from %d to %d\n", name, optarg,
                 least, most);
    return false;
  }
  return true;
}

std::string default_config_file() {
  const char* home = std::getenv("HOME");
  return std::string(home != nullptr ? home : ".") + "/.xmltv/tv_grab_nv8x.conf";
}

/// What an option prints that ends the program; empty for the others.
std::string text_of(int option) {
  switch (option) {
    case description:
      return "Schedules of a playout system (nv8x)\n";
    case capabilities:
      return "baseline\nmanualconfig\n";
    case show_version:
      return std::string("tv_grab_nv8x ") + NV8X_VERSION + "\n";
    case show_help:
      return help;
    default:
      return {};
  }
}

bool take_option(GrabCommand& command, int option) {
  constexpr int most_days = 366;
  constexpr int most_jobs = 1024;
  switch (option) {
    case days:
      return take_number(command.run.span.days, 0, most_days, "days");
    case offset:
      return take_number(command.run.span.offset, -most_days, most_days, "offset");
    case jobs:
      return take_number(command.run.jobs, 1, most_jobs, "jobs");
    case output:
      command.output = optarg;
      return true;
    case quiet:
      command.run.quiet = true;
      return true;
    case config_file:
      command.config_file = optarg;
      return true;
    case configure:
      command.task = GrabTask::configure;
      return true;
    case list_channels:
      command.task = GrabTask::channels;
      return true;
    case channel:
      command.channel = optarg;
      return true;
    default:
      return false;
  }
}

}  // namespace

std::optional<GrabCommand> parse_grab_command(int argc, char** argv, int& status) {
  GrabCommand command;
  command.config_file = default_config_file();
  command.run.jobs = static_cast<int>(std::max(1L, sysconf(_SC_NPROCESSORS_ONLN)));
  status = EXIT_FAILURE;
  int option = 0;
  while ((option = getopt_long(argc, argv, "", options.data(), nullptr)) != -1) {
    if (const std::string text = text_of(option); !text.empty()) {
      print_output(text);
      finish_output();
      status = EXIT_SUCCESS;
      return std::nullopt;
    }
    if (!take_option(command, option)) {
      std::fprintf(stderr, "Try 'tv_grab_nv8x --help'.\n");
      return std::nullopt;
    }
  }
  if (optind < argc) {
    std::fprintf(stderr, "tv_grab_nv8x: '%s' is no option\nTry 'tv_grab_nv8x --help'.\n",
                 argv[optind]);
    return std::nullopt;
  }
  status = EXIT_SUCCESS;
  return command;
}
