#include "publish/answer_request.hpp"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <optional>
#include <system_error>

#include "platform/system/output.hpp"
#include "publish/publish_options.hpp"
#include "station/channel_schedule.hpp"
#include "station/guards.hpp"
#include "station/station_config.hpp"

namespace {

constexpr const char* not_found =
    "Status: 404 Not Found\nContent-Type: text/plain\n\nThe station has no such channel.\n";
constexpr std::string_view default_format = "html";

/// The text with "+" and "%20" replaced by what they stand for.
std::string decoded(std::string_view text) {
  std::string out;
  for (; !text.empty(); text.remove_prefix(1)) {
    const std::string_view digits = text.substr(1, 2);
    const char* const end = digits.data() + digits.size();
    unsigned char byte = 0;
    const bool is_number = std::from_chars(digits.data(), end, byte, 16).ptr == end;
    if (text.front() == '%' && digits.size() == 2 && is_number) {
      out += static_cast<char>(byte);
      text.remove_prefix(digits.size());
    } else {
      out += text.front() == '+' ? ' ' : text.front();
    }
  }
  return out;
}

/// The first value of a field in the query.
std::optional<std::string> value_in(std::string_view query, std::string_view field) {
  while (!query.empty()) {
    const std::string_view part = query.substr(0, query.find('&'));
    query.remove_prefix(std::min(query.size(), part.size() + 1));
    const size_t equals = part.find('=');
    if (equals != std::string_view::npos && part.substr(0, equals) == field) {
      return decoded(part.substr(equals + 1));
    }
  }
  return std::nullopt;
}

/// One of the printer's formats, whatever the query says.
std::string_view format_in(std::string_view query) {
  const std::string asked = value_in(query, "format").value_or("");
  const auto* const format = std::ranges::find(page_formats, asked);
  return format != std::end(page_formats) && *format != xmltv_format ? *format : default_format;
}

/// The channel of that id; the first one if the query names none.
const StationChannel* channel_in(std::string_view query,
                                 const std::vector<StationChannel>& channels) {
  const auto id = value_in(query, "channel");
  const auto channel =
      id ? std::ranges::find(channels, *id, &StationChannel::id) : channels.begin();
  return channel != channels.end() ? &*channel : nullptr;
}

/// The printer stands in the folder of this program.
std::string path_of_printer() {
  std::error_code error;
  const auto own_path = std::filesystem::read_symlink("/proc/self/exe", error);
  return error ? "" : own_path.parent_path() / "nv8x_schedule_to_xml";
}

int refuse(const std::string& reason) {
  std::fprintf(stderr, "%s: %s\n", publisher, reason.c_str());
  return EXIT_FAILURE;
}

/// Only returns if the printer cannot be run.
int run_printer(const StationChannel& channel, std::string schedule, std::string_view format) {
  std::string printer = path_of_printer();
  std::vector<std::string> words = {
      printer, "--cgi", "--schedule", std::move(schedule), "--format", std::string(format)};
  if (!channel.station_id.empty()) {
    words.insert(words.end(), {"--station-id", channel.station_id});
  }
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (std::string& word : words) {
    arguments.push_back(word.data());
  }
  arguments.push_back(nullptr);
  std::string zone = "TZ=" + channel.zone;
  std::array<char*, 2> environment = {zone.data(), nullptr};
  execve(printer.c_str(), arguments.data(), environment.data());
  return refuse("'" + printer + "': " + std::strerror(errno));
}

}  // namespace

int answer_request(const std::string& config_file, std::string_view query) {
  const auto channels = read_station_config(publisher, config_file);
  if (!channels) {
    return EXIT_FAILURE;
  }
  const StationChannel* const channel = channel_in(query, *channels);
  if (channel == nullptr) {
    print_output(not_found);
    finish_output();
    return EXIT_SUCCESS;
  }
  if (const std::string complaint = complaint_about_zone(*channel); !complaint.empty()) {
    return refuse(channel->id + ": " + complaint);
  }
  if (chdir(channel->folder.c_str()) != 0) {
    return refuse(channel->id + ": '" + channel->folder + "': " + std::strerror(errno));
  }
  std::string error;
  const auto schedule = schedule_path_of(*channel, error);
  if (!schedule) {
    return refuse(channel->id + ": " + error);
  }
  return run_printer(*channel, (schedule->starts_with('-') ? "./" : "") + *schedule,
                     format_in(query));
}
