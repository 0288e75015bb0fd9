#include "check/check_options.hpp"

#include <getopt.h>

#include <array>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <string_view>

#include "check/check_failures.hpp"
#include "platform/system/clock.hpp"
#include "platform/system/output.hpp"
#include "schedule/rendermgr.hpp"

namespace {

constexpr const char* program = "nv8x_schedule_check";

constexpr const char* help =
    "Usage: nv8x_schedule_check [OPTION]... FILE...\n"
    "Finds what schedule files say that will not air, or not as it was meant.\n"
    "FILE - is standard input.\n"
    "\n"
    "      --channel=N        check the schedule of channel N too\n"
    "      --explain=WHEN     tell what airs then and why; WHEN as a schedule file\n"
    "                         writes a time, or @SECONDS since 1970\n"
    "      --format=FORMAT    print findings as text (the default) or json\n"
    "      --max=N            print at most N findings of a file (100)\n"
    "      --no-media         leave media files alone\n"
    "      --rendermgr=FILE   check the schedule that a render-manager file names too\n"
    "      --strict           let warnings count as errors do\n"
    "      --time=SECONDS     the report time, in seconds since 1970\n"
    "      --help             print this and exit\n"
    "      --version          print the version and exit\n"
    "\n"
    "The exit status is 0 if nothing was found that counts, 1 if something was, and 2\n"
    "for a wrong command line or what cannot be read, checked or printed.\n";

enum Option : int {
  channel = 1,
  explain,
  format,
  most,
  no_media,
  rendermgr,
  strict,
  time_of_report,
  show_help,
  show_version
};

constexpr std::array<option, 11> options = {{
    {"channel", required_argument, nullptr, channel},
    {"explain", required_argument, nullptr, explain},
    {"format", required_argument, nullptr, format},
    {"max", required_argument, nullptr, most},
    {"no-media", no_argument, nullptr, no_media},
    {"rendermgr", required_argument, nullptr, rendermgr},
    {"strict", no_argument, nullptr, strict},
    {"time", required_argument, nullptr, time_of_report},
    {"help", no_argument, nullptr, show_help},
    {"version", no_argument, nullptr, show_version},
    {nullptr, 0, nullptr, 0},
}};

template <typename Number>
bool parse_number(const char* text, Number& number) {
  const char* end = text + std::strlen(text);
  const auto result = std::from_chars(text, end, number);
  return result.ec == std::errc() && result.ptr == end && text != end;
}

bool refuse(const char* what, const char* value) {
  std::fprintf(stderr, "%s: %s '%s'\n", program, what, value);
  return false;
}

bool take_rendermgr(CheckCommand& command, const std::string& path) {
  const std::optional<std::string> schedule = read_rendermgr(path);
  if (!schedule) {
    return refuse("cannot open the render-manager file", path.c_str());
  }
  if (schedule->empty()) {
    return refuse("no schedule in the render-manager file", path.c_str());
  }
  command.files.push_back(*schedule);
  return true;
}

bool take_option(CheckCommand& command, int option) {
  switch (option) {
    case channel: {
      int32_t number = 0;
      return parse_number(optarg, number) && number >= 0
                 ? take_rendermgr(command, rendermgr_path_of_channel(number))
                 : refuse("no channel number:", optarg);
    }
    case explain:
      command.moment = optarg;
      return true;
    case format:
      command.json = std::string_view(optarg) == "json";
      return command.json || std::string_view(optarg) == "text" || refuse("no format:", optarg);
    case most:
      return parse_number(optarg, command.most) || refuse("no number:", optarg);
    case no_media:
      command.options.media = false;
      return true;
    case rendermgr:
      return take_rendermgr(command, optarg);
    case strict:
      command.strict = true;
      return true;
    case time_of_report:
      return parse_number(optarg, command.options.report_time) || refuse("no time:", optarg);
    default:
      return false;
  }
}

}  // namespace

std::optional<CheckCommand> parse_check_command(int argc, char** argv, int& status) {
  CheckCommand command;
  status = could_not_check;
  int option = 0;
  while ((option = getopt_long(argc, argv, "", options.data(), nullptr)) != -1) {
    if (option == show_help || option == show_version) {
      if (option == show_help) {
        print_output(help);
      } else {
        print_output(std::string(program) + " " + NV8X_VERSION + "\n");
      }
      finish_output();
      status = 0;
      return std::nullopt;
    }
    if (!take_option(command, option)) {
      std::fprintf(stderr, "Try '%s --help'.\n", program);
      return std::nullopt;
    }
  }
  command.files.insert(command.files.end(), argv + optind, argv + argc);
  if (command.files.empty()) {
    std::fprintf(stderr, "%s: no file is given\nTry '%s --help'.\n", program, program);
    return std::nullopt;
  }
  if (command.options.report_time == 0) {
    command.options.report_time = current_time();
  }
  status = 0;
  return command;
}
