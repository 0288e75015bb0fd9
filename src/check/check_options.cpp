#include "check/check_options.hpp"

#include <array>
#include <cstdio>
#include <string_view>

#include "platform/system/clock.hpp"
#include "schedule/rendermgr.hpp"

namespace {

constexpr const char* about =
    "Usage: nv8x_schedule_check [OPTION]... FILE...\n"
    "Finds what schedule files say that will not air, or not as it was meant.\n"
    "FILE - is standard input.\n"
    "\n";
constexpr const char* exit_status =
    "\n"
    "The exit status is 0 if there are no errors, 1 if there are, and 2 for a wrong\n"
    "command line or what cannot be read, checked or printed.\n";

bool refuse(const char* what, const char* value) {
  std::fprintf(stderr, "nv8x_schedule_check: %s '%s'\n", what, value);
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

bool take_channel(CheckCommand& command, const char* value) {
  int32_t number = 0;
  return parse_whole_number(value, number) && number >= 0
             ? take_rendermgr(command, rendermgr_path_of_channel(number))
             : refuse("invalid channel number", value);
}

struct CheckOption {
  OptionInfo info;
  /// Prints a message and returns false if the value is wrong.
  bool (*take)(CheckCommand& command, const char* value) = nullptr;
  bool is_of_findings = false;  ///< it cannot be given with --explain
};

constexpr std::array<CheckOption, 11> options = {{
    {{"channel", "N", "check the schedule of channel N too", Offer::channels, Use::repeated},
     take_channel},
    {{"explain", "WHEN",
      "tell what airs then and why; WHEN as a schedule file\n"
      "writes a time, or @SECONDS since 1970"},
     set_text<&CheckCommand::moment>},
    {{"format", "FORMAT", "print findings as text (the default) or json", Offer::words, Use::once,
      "text json"},
     [](CheckCommand& command, const char* value) {
       command.json = std::string_view(value) == "json";
       return command.json || std::string_view(value) == "text" || refuse("unknown format", value);
     }},
    {{"formats", "LIST",
      "documents that the station makes; some of html,xml,\njson,xmltv (the "
      "default),rovi,gracenote",
      Offer::words, Use::once, "html,xml,json,xmltv html,xml,json,xmltv,rovi,gracenote"},
     [](CheckCommand& command, const char* value) {
       return read_made_formats(value, command.options.formats) || refuse("unknown format", value);
     },
     true},
    {{"max", "N", "print at most N findings of a file (100)"},
     [](CheckCommand& command, const char* value) {
       return parse_whole_number(value, command.max_findings) || refuse("invalid number", value);
     },
     true},
    {{"no-media", nullptr, "do not look at media files"},
     [](CheckCommand& command, const char*) {
       command.options.media = false;
       return true;
     },
     true},
    {{"rendermgr", "FILE", "check the schedule that a render-manager file names too", Offer::files,
      Use::repeated},
     [](CheckCommand& command, const char* value) { return take_rendermgr(command, value); }},
    {{"strict", nullptr, "count warnings as errors"}, set_flag<&CheckCommand::strict>, true},
    {{"time", "SECONDS", "the report time, in seconds since 1970"},
     [](CheckCommand& command, const char* value) {
       return parse_whole_number(value, command.options.report_time) ||
              refuse("invalid time", value);
     }},
    {{"help", nullptr, "print this and exit", Offer::nothing, Use::alone}},
    {{"version", nullptr, "print the version and exit", Offer::nothing, Use::alone}},
}};

}  // namespace

ProgramInfo check_program() {
  return {.name = "nv8x_schedule_check",
          .options = options_of(options),
          .operands = Offer::files,
          .version = NV8X_VERSION,
          .about = about,
          .status = exit_status};
}

std::optional<CheckCommand> parse_check_command(int argc, char** argv, int& status) {
  const ProgramInfo program = check_program();
  CheckCommand command;
  const auto files = parse_command_line(
      program, argc, argv,
      [&](size_t place, const char* value) {
        const CheckOption& option = options.at(place);
        if (option.is_of_findings) {
          command.of_findings = option.info.name;
        }
        return option.take(command, value);
      },
      status);
  if (!files) {
    return std::nullopt;
  }
  command.files.insert(command.files.end(), files->begin(), files->end());
  if (command.files.empty()) {
    status = refuse_command_line(program, "no file is given");
    return std::nullopt;
  }
  if (command.moment && command.of_findings != nullptr) {
    status =
        refuse_command_line(program, std::string("--explain ignores --") + command.of_findings);
    return std::nullopt;
  }
  if (command.options.report_time == 0) {
    command.options.report_time = current_time();
  }
  return command;
}
