#include "grab/grab_options.hpp"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>

#include "platform/system/file.hpp"
#include "platform/system/output.hpp"
#include "station/station_config.hpp"

namespace {

constexpr const char* about =
    "Usage: tv_grab_nv8x [OPTION]...\n"
    "Prints an XMLTV guide of the channels in its configuration.\n"
    "\n";
constexpr const char* exit_status =
    "\n"
    "The exit status is 0 if the guide is whole, and 1 if a channel is missing, the\n"
    "guide is empty or could not be written, or the configuration or the command\n"
    "line is wrong.\n";

constexpr int most_days = 366;
constexpr int most_jobs = 1024;

bool take_number(int& number, const char* value, int least, int most, const char* name) {
  if (!parse_whole_number(value, number) || number < least || number > most) {
    std::fprintf(stderr, "tv_grab_nv8x: --%s: '%s' is not a number from %d to %d\n", name, value,
                 least, most);
    return false;
  }
  return true;
}

std::string default_config_file() {
  const char* home = std::getenv("HOME");
  const std::string own = std::string(home != nullptr ? home : ".") + "/.xmltv/tv_grab_nv8x.conf";
  const bool is_only_for_station =
      look_at(own) == FileState::missing && look_at(station_config_path) != FileState::missing;
  return is_only_for_station ? station_config_path : own;
}

struct GrabOption {
  OptionInfo info;
  /// False, after a message, when the value is wrong.
  bool (*take)(GrabCommand& command, const char* value) = nullptr;
};

constexpr std::array<GrabOption, 13> options = {{
    {{"days", "N", "days of the guide (14)"},
     [](GrabCommand& command, const char* value) {
       return take_number(command.run.span.days, value, 0, most_days, "days");
     }},
    {{"offset", "N", "days from today to the first of them (0)"},
     [](GrabCommand& command, const char* value) {
       return take_number(command.run.span.offset, value, -most_days, most_days, "offset");
     }},
    {{"output", "FILE", "write to FILE instead of standard output", Offer::files},
     set_text<&GrabCommand::output>},
    {{"quiet", nullptr, "show no progress"},
     [](GrabCommand& command, const char*) {
       command.run.quiet = true;
       return true;
     }},
    {{"config-file", "FILE", "the configuration (~/.xmltv/tv_grab_nv8x.conf)", Offer::files},
     set_text<&GrabCommand::config_file>},
    {{"configure", nullptr, "ask for the channels and write the configuration"},
     [](GrabCommand& command, const char*) {
       command.task = GrabTask::configure;
       return true;
     }},
    {{"list-channels", nullptr, "print the channels alone"},
     [](GrabCommand& command, const char*) {
       command.task = GrabTask::channels;
       return true;
     }},
    {{"channel", "ID", "one channel only", Offer::guide_channels}, set_text<&GrabCommand::channel>},
    {{"jobs", "N", "channels worked on at a time (as many as processors)"},
     [](GrabCommand& command, const char* value) {
       return take_number(command.run.jobs, value, 1, most_jobs, "jobs");
     }},
    {{"description", nullptr, "print what this grabber is", Offer::nothing, Use::alone},
     [](GrabCommand&, const char*) {
       print_output("Schedules of a playout system (nv8x)\n");
       return true;
     }},
    {{"capabilities", nullptr, "print what it can do", Offer::nothing, Use::alone},
     [](GrabCommand&, const char*) {
       print_output("baseline\nmanualconfig\n");
       return true;
     }},
    {{"version", nullptr, "print the version", Offer::nothing, Use::alone}},
    {{"help", nullptr, "print this", Offer::nothing, Use::alone}},
}};

}  // namespace

ProgramInfo grab_program() {
  return {.name = "tv_grab_nv8x",
          .options = options_of(options),
          .version = NV8X_VERSION,
          .about = about,
          .status = exit_status,
          .usage_status = EXIT_FAILURE,
          .config_option = "config-file",
          .config_file = "$HOME/.xmltv/tv_grab_nv8x.conf"};
}

std::optional<GrabCommand> parse_grab_command(int argc, char** argv, int& status) {
  GrabCommand command;
  command.config_file = default_config_file();
  command.run.jobs = static_cast<int>(std::max(1L, sysconf(_SC_NPROCESSORS_ONLN)));
  const auto operands = parse_command_line(
      grab_program(), argc, argv,
      [&](size_t place, const char* value) { return options.at(place).take(command, value); },
      status);
  return operands ? std::optional(command) : std::nullopt;
}
