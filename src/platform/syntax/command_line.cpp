#include "platform/syntax/command_line.hpp"

#include <getopt.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "platform/syntax/nearest_word.hpp"
#include "platform/system/output.hpp"

namespace {

// getopt_long returns this for the first option. Lower values are characters.
constexpr int first_option = 256;

std::vector<option> getopt_table(const ProgramInfo& program) {
  std::vector<option> table;
  for (const OptionInfo& info : program.options) {
    const int argument = info.value != nullptr ? required_argument : no_argument;
    table.push_back({info.name, argument, nullptr, first_option + static_cast<int>(table.size())});
  }
  table.push_back({nullptr, 0, nullptr, 0});
  return table;
}

/// "NAME" or "NAME=VALUE".
std::string written_option(const OptionInfo& option) {
  const std::string name = option.name;
  return option.value != nullptr ? name + "=" + option.value : name;
}

std::string help_of(const ProgramInfo& program) {
  constexpr const char* dashes = "      --";
  size_t width = 17;  // wide enough for short options too
  for (const OptionInfo& option : program.options) {
    width = std::max(width, written_option(option).size() + 2);
  }
  std::string text = program.about;
  for (const OptionInfo& option : program.options) {
    if (option.help == nullptr) {
      continue;
    }
    std::string line = dashes + written_option(option);
    const size_t column = std::strlen(dashes) + width;
    line.resize(column, ' ');
    for (const char* c = option.help; *c != '\0'; ++c) {
      line += *c;
      if (*c == '\n') {
        line.append(column, ' ');
      }
    }
    text += line + "\n";
  }
  return text + program.status;
}

void point_to_help(const ProgramInfo& program) {
  std::fprintf(stderr, "Try '%s --help'.\n", program.name);
}

/// Suggests the option that an unknown one probably stands for. getopt_long has already listed the
/// options when several begin like it.
void advise(const ProgramInfo& program, std::string_view argument) {
  if (!argument.starts_with("--")) {
    return;
  }
  const std::string_view word = argument.substr(2, argument.find('=') - 2);
  std::vector<std::string_view> names;
  for (const OptionInfo& option : program.options) {
    names.emplace_back(option.name);
    if (names.back().starts_with(word)) {
      return;
    }
  }
  if (const auto nearest = nearest_word(word, names)) {
    std::fprintf(stderr, "Did you mean '--%s'?\n", std::string(*nearest).c_str());
  }
}

/// Handles an option that prints something and ends the program.
void answer(const ProgramInfo& program, size_t place, const ApplyOption& apply) {
  const std::string_view name = program.options[place].name;
  if (name == "help") {
    print_output(help_of(program));
  } else if (name == "version") {
    print_output(std::string(program.name) + " " + program.version + "\n");
  } else {
    apply(place, nullptr);
  }
  finish_output();
}

}  // namespace

std::optional<std::vector<std::string>> parse_command_line(const ProgramInfo& program, int argc,
                                                           char** argv, const ApplyOption& apply,
                                                           int& status) {
  const std::vector<option> table = getopt_table(program);
  optind = 0;  // makes getopt_long start again
  status = program.usage_status;
  int found = 0;
  while ((found = getopt_long(argc, argv, "", table.data(), nullptr)) != -1) {
    if (found < first_option) {
      if (optopt == 0) {
        advise(program, argv[optind - 1]);
      }
      point_to_help(program);
      return std::nullopt;
    }
    const auto place = static_cast<size_t>(found - first_option);
    if (program.options[place].use == Use::alone) {
      answer(program, place, apply);
      status = EXIT_SUCCESS;
      return std::nullopt;
    }
    if (!apply(place, optarg)) {
      point_to_help(program);
      return std::nullopt;
    }
  }
  if (optind < argc && program.operands == Offer::nothing) {
    refuse_command_line(program, "'" + std::string(argv[optind]) + "' is not an option");
    return std::nullopt;
  }
  status = EXIT_SUCCESS;
  return std::vector<std::string>(argv + optind, argv + argc);
}

int refuse_command_line(const ProgramInfo& program, const std::string& message) {
  std::fprintf(stderr, "%s: %s\n", program.name, message.c_str());
  point_to_help(program);
  return program.usage_status;
}

std::string short_help(const OptionInfo& option) {
  std::string text = option.help;
  text.erase(std::min(text.find(';'), text.size()));
  const size_t open = text.find(" (");
  const size_t close = text.find(')', open);
  return open != std::string::npos && close != std::string::npos
             ? text.erase(open, close + 1 - open)
             : text;
}
