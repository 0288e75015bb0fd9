#include "driver/options.hpp"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "driver/output_formats.hpp"
#include "platform/system/clock.hpp"
#include "schedule/run_options.hpp"

namespace {

constexpr const char* usage_head = "nv8x_schedule_to_xml [options]\n";

/// One option: what it is called, what it does and what the usage text says of it.
struct Option {
  std::string_view name;
  const char* usage;                 ///< its line of the usage text; null: not shown
  const char* missing_value;         ///< message without the value; null: it takes no value
  bool (*apply)(const char* value);  ///< false: the run ends with status 1
};

bool show_usage(const char* value);

bool set_format(const char* value) {
  const OutputFormatInfo* format = find_output_format(value);
  if (format == nullptr) {
    std::fprintf(stderr, "Unknown output format %s\n", value);
    return false;
  }
  run_options.format = format->format;
  return true;
}

bool set_deprecated_format(OutputFormat format, const char* name) {
  std::fprintf(stderr, "The `--%s` flag is deprecated; please use `--format %s` instead.\n", name,
               name);
  run_options.format = format;
  return true;
}

bool set_schedule(const char* value) {
  run_options.schedule_path = value;
  return true;
}

bool set_rendermgr(const char* value) {
  run_options.rendermgr_path = value;
  return true;
}

bool set_channel(const char* value) {
  run_options.channel = static_cast<int32_t>(std::strtol(value, nullptr, 10));
  return true;
}

bool set_time(const char* value) {
  run_options.report_time = std::strtoull(value, nullptr, 10);
  return true;
}

bool set_cgi(const char*) {
  run_options.cgi = true;
  return true;
}

bool set_pcn_week(const char*) {
  run_options.pcn_week = true;
  return true;
}

bool set_pcn_month(const char*) {
  run_options.pcn_month = true;
  return true;
}

bool set_debug_patch(const char*) {
  run_options.debug_patch = true;
  return true;
}

bool set_html(const char*) {
  return set_deprecated_format(OutputFormat::html, "html");
}

bool set_json(const char*) {
  return set_deprecated_format(OutputFormat::json, "json");
}

bool set_station_id(const char* value) {
  run_options.station_id = value;
  return true;
}

// In the order of the usage text.
constexpr std::array<Option, 14> options = {{
    {"schedule", "  --schedule <schedule path>        Directly convert schedule file\n",
     "The --schedule option must be followed by a schedule path\n", set_schedule},
    {"rendermgr",
     "  --rendermgr <rendermgr file>      Convert schedule associated with rendermgr file\n",
     "The --rendermgr option must be followed by a rendermgr file\n", set_rendermgr},
    {"channel", "  --channel <N>                     Convert schedule associated with channel\n",
     "The --channel option must be followed by a channel number\n", set_channel},
    {"time", "  --time <t>                        Show schedule around time t\n",
     "The --time option must be followed by a time\n", set_time},
    {"cgi", "  --cgi                             CGI mode\n", nullptr, set_cgi},
    {"pcn-week", "  --pcn-week                        Only prev/current/next week\n", nullptr,
     set_pcn_week},
    {"pcn-month", "  --pcn-month                       Only prev/current/next month\n", nullptr,
     set_pcn_month},
    {"d-patch", "  --d-patch                         debug\n", nullptr, set_debug_patch},
    {"format",
     "  --format <fmt>                    Format to emit (one of xml, html, json, or rovi)\n",
     "The --format option must be followed by one of xml, html, or json.\n", set_format},
    {"station-id", "  --station-id <id>                 Station ID for Rovi LO X-List\n",
     "The --station-id option must be followed by a station ID\n", set_station_id},
    {"html", nullptr, nullptr, set_html},
    {"json", nullptr, nullptr, set_json},
    {"h", nullptr, nullptr, show_usage},
    {"help", nullptr, nullptr, show_usage},
}};

bool show_usage(const char*) {
  std::fputs(usage_head, stderr);
  for (const Option& option : options) {
    if (option.usage != nullptr) {
      std::fputs(option.usage, stderr);
    }
  }
  return false;
}

const Option* find_option(std::string_view name) {
  for (const Option& option : options) {
    if (option.name == name) {
      return &option;
    }
  }
  return nullptr;
}

/// The name behind any number of dashes.
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
    if (option->missing_value != nullptr) {
      if (++i == argc) {
        std::fputs(option->missing_value, stderr);
        return false;
      }
      value = argv[i];
    }
    if (!option->apply(value)) {
      return false;
    }
  }
  return true;
}

}  // namespace

bool parse_options(int argc, char** argv) {
  if (!parse_arguments(argc, argv)) {
    return false;
  }
  if (run_options.report_time == 0) {
    run_options.report_time = static_cast<uint64_t>(current_time());
  }
  return true;
}
