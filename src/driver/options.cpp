#include "driver/options.hpp"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "driver/output_formats.hpp"
#include "platform/system/clock.hpp"
#include "schedule/run_options.hpp"

namespace {

/// An option, with its line of the usage text and the message for a missing value. Both are fixed.
struct Option {
  OptionInfo info;
  const char* usage;        ///< null: not in the usage text
  const char* followed_by;  ///< null: takes no value
  /// Returns false when the run must end with status 1.
  bool (*take)(RunOptions& run, const char* value);
};

bool show_usage(RunOptions&, const char*);

bool set_format(RunOptions& run, const char* value) {
  const OutputFormatInfo* format = find_output_format(value);
  if (format == nullptr) {
    std::fprintf(stderr, "Unknown output format %s\n", value);
    return false;
  }
  run.format = format->format;
  return true;
}

bool set_deprecated_format(RunOptions& run, OutputFormat format, const char* name) {
  std::fprintf(stderr, "The `--%s` flag is deprecated; please use `--format %s` instead.\n", name,
               name);
  run.format = format;
  return true;
}

bool set_html(RunOptions& run, const char*) {
  return set_deprecated_format(run, OutputFormat::html, "html");
}

bool set_json(RunOptions& run, const char*) {
  return set_deprecated_format(run, OutputFormat::json, "json");
}

bool set_channel(RunOptions& run, const char* value) {
  run.channel = static_cast<int32_t>(std::strtol(value, nullptr, 10));
  return true;
}

bool set_time(RunOptions& run, const char* value) {
  run.report_time = std::strtoull(value, nullptr, 10);
  return true;
}

// In the order of the usage text. Scripts may compare that text.
constexpr std::array<Option, 14> options = {{
    {{"schedule", "schedule path", "print this schedule file", Offer::files},
     "Directly convert schedule file",
     "a schedule path",
     set_text<&RunOptions::schedule_path>},
    {{"rendermgr", "rendermgr file", "print the schedule that a render-manager file names",
      Offer::files},
     "Convert schedule associated with rendermgr file",
     "a rendermgr file",
     set_text<&RunOptions::rendermgr_path>},
    {{"channel", "N", "print the schedule of channel N", Offer::channels},
     "Convert schedule associated with channel",
     "a channel number",
     set_channel},
    {{"time", "t", "show the unit around this time, in seconds since 1970"},
     "Show schedule around time t",
     "a time",
     set_time},
    {{"cgi", nullptr, "answer a web server"}, "CGI mode", nullptr, set_flag<&RunOptions::cgi>},
    {{"pcn-week", nullptr, "only the previous, current and next week"},
     "Only prev/current/next week",
     nullptr,
     set_flag<&RunOptions::pcn_week>},
    {{"pcn-month", nullptr, "only the previous, current and next month"},
     "Only prev/current/next month",
     nullptr,
     set_flag<&RunOptions::pcn_month>},
    {{"d-patch", nullptr, "trace the repairs on standard error"},
     "debug",
     nullptr,
     set_flag<&RunOptions::debug_patch>},
    {{"format", "fmt", "print the document in this format", Offer::words, Use::once,
      "xml html json rovi gracenote"},
     "Format to emit (one of xml, html, json, or rovi)",
     "one of xml, html, or json.",
     set_format},
    {{"station-id", "id", "the name of the station in the listings"},
     "Station ID for Rovi LO X-List",
     "a station ID",
     set_text<&RunOptions::station_id>},
    {{"html"}, nullptr, nullptr, set_html},
    {{"json"}, nullptr, nullptr, set_json},
    {{"h"}, nullptr, nullptr, show_usage},
    {{"help", nullptr, "print the options", Offer::nothing, Use::alone},
     nullptr,
     nullptr,
     show_usage},
}};

bool show_usage(RunOptions&, const char*) {
  std::fputs("nv8x_schedule_to_xml [options]\n", stderr);
  for (const Option& option : options) {
    if (option.usage != nullptr) {
      std::string head = option.info.name;
      if (option.info.value != nullptr) {
        head += std::string(" <") + option.info.value + ">";
      }
      std::fprintf(stderr, "  --%-32s%s\n", head.c_str(), option.usage);
    }
  }
  return false;
}

const Option* find_option(std::string_view name) {
  for (const Option& option : options) {
    if (option.info.name == name) {
      return &option;
    }
  }
  return nullptr;
}

/// The argument without its leading dashes.
const char* option_name(const char* argument) {
  while (*argument == '-') {
    ++argument;
  }
  return argument;
}

bool parse_arguments(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    const char* argument = argv[i];
    const char* name = option_name(argument);
    const Option* option = name != argument ? find_option(name) : nullptr;
    if (option == nullptr) {
      std::fprintf(stderr, "Unknown option %s\n", name);
      return false;
    }
    const char* value = nullptr;
    if (option->followed_by != nullptr) {
      if (++i == argc) {
        std::fprintf(stderr, "The --%s option must be followed by %s\n", name, option->followed_by);
        return false;
      }
      value = argv[i];
    }
    if (!option->take(run_options, value)) {
      return false;
    }
  }
  return true;
}

}  // namespace

ProgramInfo printer_program() {
  return {.name = "nv8x_schedule_to_xml", .options = options_of(options), .any_dashes = true};
}

bool parse_options(int argc, char** argv) {
  if (!parse_arguments(argc, argv)) {
    return false;
  }
  if (run_options.report_time == 0) {
    run_options.report_time = static_cast<uint64_t>(current_time());
  }
  return true;
}
