#include "publish/check_config.hpp"

#include <unistd.h>

#include <cstdio>
#include <filesystem>

#include "publish/publish_options.hpp"

namespace {

void print_mistake(const std::string& config_file, const StationChannel& channel,
                   const std::string& text) {
  std::fprintf(stderr, "%s: %s:%d: the channel '%s': %s\n", publisher, config_file.c_str(),
               channel.line, channel.id.c_str(), text.c_str());
}

/// The pages of a channel begin with its id.
std::string complaint_about_page_name(const std::string& id) {
  if (id.find('/') != std::string::npos) {
    return "an id with a slash cannot be the name of a page";
  }
  if (id.starts_with('.')) {
    return "an id with a full stop in front cannot be the name of a page";
  }
  if (id == "station" || id == "index") {
    return "its page would have the name of a page of the whole station";
  }
  return {};
}

std::string complaint_about_web_folder(const std::string& path) {
  std::error_code error;
  if (!std::filesystem::is_directory(path, error)) {
    return "'" + path + "' is no folder";
  }
  return access(path.c_str(), W_OK) == 0 ? std::string() : "'" + path + "' may not be written to";
}

using Complain = std::string (*)(const StationChannel& channel);

bool print_mistakes(const std::string& config_file, const std::vector<StationChannel>& channels,
                    Complain complain) {
  bool is_good = true;
  for (const StationChannel& channel : channels) {
    if (const std::string text = complain(channel); !text.empty()) {
      print_mistake(config_file, channel, text);
      is_good = false;
    }
  }
  return is_good;
}

}  // namespace

bool print_page_mistakes(const std::string& config_file,
                         const std::vector<StationChannel>& channels) {
  return print_mistakes(config_file, channels, [](const StationChannel& channel) {
    return complaint_about_page_name(channel.id);
  });
}

bool print_machine_mistakes(const std::string& config_file,
                            const std::vector<StationChannel>& channels) {
  return print_mistakes(config_file, channels, [](const StationChannel& channel) {
    const std::string complaint = complaint_about_channel(channel);
    return complaint.empty() ? complaint_about_web_folder(channel.web_folder) : complaint;
  });
}
