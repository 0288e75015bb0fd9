#include "station/station_config.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <utility>

#include "platform/syntax/text.hpp"
#include "platform/system/file.hpp"
#include "platform/time/known_zone.hpp"
#include "station/config_keys.hpp"
#include "station/config_sections.hpp"
#include "station/programme_texts.hpp"

namespace {

/// What is wrong with a value; empty if nothing is.
using Complaint = std::string;

/// The folder's pattern with the id in it. Nothing when another letter than "i" follows a "%".
std::optional<std::string> filled_folder(std::string_view pattern, const std::string& id) {
  std::string folder;
  for (size_t i = 0; i < pattern.size(); ++i) {
    if (pattern[i] != '%') {
      folder += pattern[i];
      continue;
    }
    const char letter = ++i < pattern.size() ? pattern[i] : '\0';
    if (letter != 'i' && letter != '%') {
      return std::nullopt;
    }
    folder += letter == 'i' ? id : "%";
  }
  return folder;
}

Complaint complaint_about_keys(const StationChannel& channel) {
  if (channel.folder.empty()) {
    return "the channel '" + channel.id + "' has no folder";
  }
  if (channel.zone.empty()) {
    return "the channel '" + channel.id + "' has no zone";
  }
  if (channel.schedule.empty() == channel.rendermgr.empty()) {
    return "the channel '" + channel.id + "' needs a schedule or a rendermgr, and not both";
  }
  return {};
}

/// Gives the channel the values of a section.
void take_values(StationChannel& channel, const ConfigSection& section,
                 std::vector<ConfigMistake>& mistakes) {
  for (const auto& [name, value] : section.values) {
    if (Complaint complaint = find_config_key(name)->take(channel, value.text);
        !complaint.empty()) {
      mistakes.push_back({value.line, std::move(complaint)});
    }
  }
}

/// A channel that names its schedule in one way does not get the default of the other way.
void drop_other_schedule(StationChannel& channel, const ConfigSection& section) {
  if (section.values.contains("schedule") && !section.values.contains("rendermgr")) {
    channel.rendermgr.clear();
  } else if (section.values.contains("rendermgr") && !section.values.contains("schedule")) {
    channel.schedule.clear();
  }
}

/// What all channels have that do not say otherwise. Its mistakes are found even if there is no
/// channel.
StationChannel defaults_of(const std::vector<ConfigSection>& sections,
                           std::vector<ConfigMistake>& mistakes) {
  StationChannel defaults;
  const auto section = std::ranges::find(sections, config_defaults_id, &ConfigSection::id);
  if (section != sections.end()) {
    take_values(defaults, *section, mistakes);
    if (!filled_folder(defaults.folder, "")) {
      mistakes.push_back({section->values.find("folder")->second.line,
                          "in the folder of [*], %i is the channel's id and %% a percent sign"});
    }
  }
  return defaults;
}

StationChannel channel_of(const ConfigSection& section, const StationChannel& defaults,
                          std::vector<ConfigMistake>& mistakes) {
  StationChannel channel = defaults;
  channel.id = section.id;
  channel.line = section.line;
  channel.folder = filled_folder(defaults.folder, section.id).value_or("?");
  drop_other_schedule(channel, section);
  take_values(channel, section, mistakes);
  channel.name = channel.name.empty() ? channel.id : channel.name;
  if (Complaint complaint = complaint_about_keys(channel);
      !complaint.empty() && !section.has_mistake) {
    mistakes.push_back({section.line, std::move(complaint)});
  }
  return channel;
}

}  // namespace

std::vector<StationChannel> parse_station_config(std::string_view content,
                                                 std::vector<ConfigMistake>& mistakes) {
  const std::vector<ConfigSection> sections = read_config_sections(content, mistakes);
  const StationChannel defaults = defaults_of(sections, mistakes);
  std::vector<StationChannel> channels;
  for (const ConfigSection& section : sections) {
    if (section.id != config_defaults_id) {
      channels.push_back(channel_of(section, defaults, mistakes));
    }
  }
  std::ranges::stable_sort(mistakes, {}, &ConfigMistake::line);
  return channels;
}

std::optional<std::vector<StationChannel>> read_station_config(const char* program,
                                                               const std::string& path,
                                                               const char* advice) {
  const FileDescriptor file = open_regular_file(AT_FDCWD, path.c_str());
  const auto content = file.is_open() ? read_content(file.get()) : std::nullopt;
  if (!content) {
    std::fprintf(stderr, "%s: %s: %s%s\n", program, path.c_str(), std::strerror(errno), advice);
    return std::nullopt;
  }
  std::vector<ConfigMistake> mistakes;
  std::vector<StationChannel> channels = parse_station_config(*content, mistakes);
  for (const ConfigMistake& mistake : mistakes) {
    std::fprintf(stderr, "%s: %s:%d: %s\n", program, path.c_str(), mistake.line,
                 mistake.text.c_str());
  }
  return mistakes.empty() ? std::optional(std::move(channels)) : std::nullopt;
}

std::string path_in_folder(const StationChannel& channel, const std::string& path) {
  return path.starts_with('/') ? path : channel.folder + "/" + path;
}

std::string complaint_about_channel(const StationChannel& channel) {
  struct stat status = {};
  if (stat(channel.folder.c_str(), &status) != 0 || !S_ISDIR(status.st_mode)) {
    return "'" + channel.folder + "' is no folder";
  }
  const std::string& file = channel.schedule.empty() ? channel.rendermgr : channel.schedule;
  const std::string path = path_in_folder(channel, file);
  if (stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) {
    return "'" + path + "' is no file";
  }
  if (access(path.c_str(), R_OK) != 0) {
    return "'" + path + "' may not be read";
  }
  return is_known_zone(channel.zone) ? std::string()
                                     : "the machine knows no zone '" + channel.zone + "'";
}

std::string complaint_about_value(std::string_view text) {
  if (text.find('\n') != std::string_view::npos) {
    return "The configuration cannot hold a line feed";
  }
  std::string_view rest = text;
  if (strip_blanks(take_line(rest)) != text) {
    return "The configuration cannot hold blanks around a text";
  }
  const std::string line = "= " + std::string(text);
  return without_config_comment(line) == strip_blanks(line)
             ? std::string()
             : "A blank before # or ; begins a comment in the configuration";
}

bool is_channel_id(std::string_view text) {
  return !text.empty() && text != config_defaults_id && text == clean_text(text);
}

std::string text_of_station_config(const std::vector<StationChannel>& channels) {
  constexpr std::array<std::pair<std::string_view, std::string StationChannel::*>, 7> keys = {{
      {"name", &StationChannel::name},
      {"language", &StationChannel::language},
      {"zone", &StationChannel::zone},
      {"folder", &StationChannel::folder},
      {"schedule", &StationChannel::schedule},
      {"rendermgr", &StationChannel::rendermgr},
      {"icon", &StationChannel::icon},
  }};
  std::string text;
  for (const StationChannel& channel : channels) {
    text += (text.empty() ? "[" : "\n[") + channel.id + "]\n";
    for (const auto& [name, field] : keys) {
      if (!(channel.*field).empty()) {
        text += std::string(name) + " = " + channel.*field + "\n";
      }
    }
    text += std::string("previous = ") + (channel.previous ? "yes" : "no") + "\n";
  }
  return text;
}
