#include "station/station_config.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <map>
#include <set>
#include <utility>

#include "platform/syntax/nearest_word.hpp"
#include "platform/syntax/text.hpp"
#include "platform/system/file.hpp"
#include "platform/time/known_zone.hpp"
#include "station/programme_texts.hpp"

namespace {

constexpr std::string_view defaults_id = "*";

/// What is wrong with a value; empty if nothing is.
using Complaint = std::string;

template <std::string StationChannel::*field>
Complaint take_text(StationChannel& channel, std::string_view value) {
  channel.*field = value;
  return {};
}

Complaint take_previous(StationChannel& channel, std::string_view value) {
  channel.previous = value == "yes";
  return value == "yes" || value == "no" ? Complaint() : "'previous' is yes or no";
}

Complaint take_formats(StationChannel& channel, std::string_view value) {
  channel.formats.clear();
  for (std::string_view rest = skip_blanks(value); !rest.empty(); rest = skip_blanks(rest)) {
    const std::string_view name = rest.substr(0, rest.find_first_of(" \t"));
    rest.remove_prefix(name.size());
    if (std::ranges::find(page_formats, name) == std::end(page_formats)) {
      return "unknown format '" + std::string(name) + "'" + did_you_mean(name, page_formats);
    }
    if (std::ranges::find(channel.formats, name) != channel.formats.end()) {
      return "the format '" + std::string(name) + "' is there twice";
    }
    channel.formats.emplace_back(name);
  }
  return channel.formats.empty() ? "'formats' names no format" : Complaint();
}

Complaint take_check(StationChannel& channel, std::string_view value) {
  constexpr std::array<std::pair<std::string_view, CheckLevel>, 3> levels = {
      {{"errors", CheckLevel::errors},
       {"warnings", CheckLevel::warnings},
       {"off", CheckLevel::off}}};
  for (const auto& [name, level] : levels) {
    if (value == name) {
      channel.check = level;
      return {};
    }
  }
  return "'check' is errors, warnings or off";
}

bool parse_number(std::string_view text, uint32_t largest, uint32_t& number) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() && number <= largest;
}

Complaint take_min_items(StationChannel& channel, std::string_view value) {
  constexpr uint32_t most_items = 1'000'000'000;
  return parse_number(value, most_items, channel.min_items)
             ? Complaint()
             : "'min-items' is a number from 0 to 1000000000";
}

Complaint take_min_percent(StationChannel& channel, std::string_view value) {
  return parse_number(value, 100, channel.min_percent) ? Complaint()
                                                       : "'min-percent' is a number from 0 to 100";
}

struct ConfigKey {
  std::string_view name;
  Complaint (*take)(StationChannel& channel, std::string_view value);
};

constexpr std::array<ConfigKey, 14> config_keys = {{
    {"name", take_text<&StationChannel::name>},
    {"language", take_text<&StationChannel::language>},
    {"zone", take_text<&StationChannel::zone>},
    {"folder", take_text<&StationChannel::folder>},
    {"schedule", take_text<&StationChannel::schedule>},
    {"rendermgr", take_text<&StationChannel::rendermgr>},
    {"icon", take_text<&StationChannel::icon>},
    {"previous", take_previous},
    {"station-id", take_text<&StationChannel::station_id>},
    {"formats", take_formats},
    {"web-folder", take_text<&StationChannel::web_folder>},
    {"check", take_check},
    {"min-items", take_min_items},
    {"min-percent", take_min_percent},
}};

const ConfigKey* find_key(std::string_view name) {
  const auto* const key = std::ranges::find(config_keys, name, &ConfigKey::name);
  return key != config_keys.end() ? key : nullptr;
}

std::string unknown_key(std::string_view name) {
  std::vector<std::string_view> names;
  names.reserve(config_keys.size());
  for (const ConfigKey& key : config_keys) {
    names.push_back(key.name);
  }
  return "unknown key '" + std::string(name) + "'" + did_you_mean(name, names);
}

std::string_view without_comment(std::string_view line) {
  for (size_t i = 0; i < line.size(); ++i) {
    const bool is_mark = line[i] == '#' || line[i] == ';';
    if (is_mark && (i == 0 || is_blank(line[i - 1]))) {
      return strip_blanks(line.substr(0, i));
    }
  }
  return strip_blanks(line);
}

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

/// A value as written in the file.
struct WrittenValue {
  std::string text;
  int line;
};

/// A section as written in the file.
struct WrittenSection {
  std::string id;
  int line;
  std::map<std::string, WrittenValue, std::less<>> values;  ///< by key
  bool has_mistake = false;  ///< so a key may only seem to be missing
};

/// Reads the lines one by one.
class SectionReader {
 public:
  explicit SectionReader(std::vector<ConfigMistake>& mistakes) : mistakes_(mistakes) {}

  void take_line(std::string_view line) {
    ++number_;
    const std::string_view text = without_comment(line);
    if (text.empty()) {
      return;
    }
    const Complaint complaint = text.starts_with('[') ? begin_section(text) : take_value(text);
    if (!complaint.empty()) {
      mistakes_.push_back({number_, complaint});
      if (!is_skipping_ && !sections_.empty()) {
        sections_.back().has_mistake = true;
      }
    }
  }

  const std::vector<WrittenSection>& sections() const { return sections_; }

 private:
  Complaint begin_section(std::string_view text) {
    // The keys of a section with a mistake belong to no channel, and are no mistakes themselves.
    is_skipping_ = true;
    if (!text.ends_with(']')) {
      return "no ']' ends the channel's id";
    }
    const std::string id(strip_blanks(text.substr(1, text.size() - 2)));
    if (id.empty()) {
      return "the channel has no id";
    }
    if (id != defaults_id && !is_channel_id(id)) {
      return "an id is UTF-8 text without control characters and doubled blanks";
    }
    if (!ids_.insert(id).second) {
      return id == defaults_id ? "the section [*] is there twice"
                               : "the channel '" + id + "' is there twice";
    }
    is_skipping_ = false;
    sections_.push_back({id, number_, {}, false});
    return {};
  }

  Complaint take_value(std::string_view text) {
    const size_t equals = text.find('=');
    if (equals == std::string_view::npos) {
      return "neither '[channel]' nor 'key = value'";
    }
    if (is_skipping_) {
      return {};
    }
    if (sections_.empty()) {
      return "a key stands before the first '[channel]'";
    }
    const std::string name(strip_blanks(text.substr(0, equals)));
    if (find_key(name) == nullptr) {
      return unknown_key(name);
    }
    const std::string value(strip_blanks(text.substr(equals + 1)));
    return sections_.back().values.emplace(name, WrittenValue{value, number_}).second
               ? Complaint()
               : "'" + name + "' is there twice";
  }

  std::vector<ConfigMistake>& mistakes_;
  int number_ = 0;
  bool is_skipping_ = false;
  std::vector<WrittenSection> sections_;
  std::set<std::string> ids_;
};

/// Gives the channel the values of a section.
void take_values(StationChannel& channel, const WrittenSection& section,
                 std::vector<ConfigMistake>& mistakes) {
  for (const auto& [name, value] : section.values) {
    if (Complaint complaint = find_key(name)->take(channel, value.text); !complaint.empty()) {
      mistakes.push_back({value.line, std::move(complaint)});
    }
  }
}

/// A channel that names its schedule in one way does not get the default of the other way.
void drop_other_schedule(StationChannel& channel, const WrittenSection& section) {
  if (section.values.contains("schedule") && !section.values.contains("rendermgr")) {
    channel.rendermgr.clear();
  } else if (section.values.contains("rendermgr") && !section.values.contains("schedule")) {
    channel.schedule.clear();
  }
}

/// What all channels have that do not say otherwise. Its mistakes are found even if there is no
/// channel.
StationChannel defaults_of(const std::vector<WrittenSection>& sections,
                           std::vector<ConfigMistake>& mistakes) {
  StationChannel defaults;
  const auto section = std::ranges::find(sections, defaults_id, &WrittenSection::id);
  if (section != sections.end()) {
    take_values(defaults, *section, mistakes);
    if (!filled_folder(defaults.folder, "")) {
      mistakes.push_back({section->values.find("folder")->second.line,
                          "in the folder of [*], %i is the channel's id and %% a percent sign"});
    }
  }
  return defaults;
}

StationChannel channel_of(const WrittenSection& section, const StationChannel& defaults,
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
  SectionReader reader(mistakes);
  for (std::string_view rest = content; !rest.empty();) {
    reader.take_line(take_line(rest));
  }
  const StationChannel defaults = defaults_of(reader.sections(), mistakes);
  std::vector<StationChannel> channels;
  for (const WrittenSection& section : reader.sections()) {
    if (section.id != defaults_id) {
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
  return without_comment(line) == strip_blanks(line)
             ? std::string()
             : "A blank before # or ; begins a comment in the configuration";
}

bool is_channel_id(std::string_view text) {
  return !text.empty() && text != defaults_id && text == clean_text(text);
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
