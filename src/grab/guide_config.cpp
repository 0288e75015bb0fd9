#include "grab/guide_config.hpp"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <set>
#include <string_view>
#include <utility>

#include "grab/programme.hpp"
#include "platform/syntax/text.hpp"
#include "platform/time/known_zone.hpp"

namespace {

using ChannelText = std::string GuideChannel::*;

struct TextKey {
  std::string_view name;
  ChannelText field;
};

// In the order in which they are written.
constexpr std::array<TextKey, 7> text_keys = {{
    {"name", &GuideChannel::name},
    {"language", &GuideChannel::language},
    {"zone", &GuideChannel::zone},
    {"folder", &GuideChannel::folder},
    {"schedule", &GuideChannel::schedule},
    {"rendermgr", &GuideChannel::rendermgr},
    {"icon", &GuideChannel::icon},
}};
constexpr std::string_view previous_key = "previous";

std::string_view without_comment(std::string_view line) {
  for (size_t i = 0; i < line.size(); ++i) {
    const bool is_mark = line[i] == '#' || line[i] == ';';
    if (is_mark && (i == 0 || is_blank(line[i - 1]))) {
      return strip_blanks(line.substr(0, i));
    }
  }
  return strip_blanks(line);
}

/// A path of the channel, relative to its folder unless it is absolute.
std::string in_folder(const GuideChannel& channel, const std::string& path) {
  return path.starts_with('/') ? path : channel.folder + "/" + path;
}

std::string take_key(GuideChannel& channel, std::string_view name, std::string_view value) {
  if (name == previous_key) {
    if (value != "yes" && value != "no") {
      return "'previous' is yes or no";
    }
    channel.previous = value == "yes";
    return {};
  }
  for (const auto& [key, field] : text_keys) {
    if (name == key) {
      channel.*field = value;
      return {};
    }
  }
  return "'" + std::string(name) + "' is no key of a channel";
}

std::string complaint_about_keys(const GuideChannel& channel) {
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

/// Reads the lines one by one.
class ConfigParser {
 public:
  /// Returns what is wrong with the line, otherwise an empty text.
  std::string take_line(std::string_view line) {
    ++number_;
    const std::string_view text = without_comment(line);
    if (text.empty()) {
      return {};
    }
    return text.starts_with('[') ? begin_section(text) : take_value(text);
  }

  int line() const { return number_; }
  std::vector<GuideChannel>& channels() { return channels_; }

 private:
  std::string begin_section(std::string_view text) {
    if (!text.ends_with(']')) {
      return "no ']' ends the channel's id";
    }
    const std::string id(strip_blanks(text.substr(1, text.size() - 2)));
    if (id.empty()) {
      return "the channel has no id";
    }
    if (!is_channel_id(id)) {
      return "an id is UTF-8 text without control characters and doubled blanks";
    }
    if (!ids_.insert(id).second) {
      return "the channel '" + id + "' is there twice";
    }
    keys_.clear();
    channels_.emplace_back();
    channels_.back().id = id;
    channels_.back().line = number_;
    return {};
  }

  std::string take_value(std::string_view text) {
    const size_t equals = text.find('=');
    if (equals == std::string_view::npos) {
      return "neither '[channel]' nor 'key = value'";
    }
    if (channels_.empty()) {
      return "a key stands before the first '[channel]'";
    }
    const std::string name(strip_blanks(text.substr(0, equals)));
    if (!keys_.insert(name).second) {
      return "'" + name + "' is there twice";
    }
    return take_key(channels_.back(), name, strip_blanks(text.substr(equals + 1)));
  }

  int number_ = 0;
  std::vector<GuideChannel> channels_;
  std::set<std::string> ids_;
  std::set<std::string> keys_;
};

std::string at_line(int line, const std::string& text) {
  return std::to_string(line) + ": " + text;
}

}  // namespace

std::optional<std::vector<GuideChannel>> parse_guide_config(const std::string& content,
                                                            std::string& error) {
  ConfigParser parser;
  for (std::string_view rest = content; !rest.empty();) {
    if (const std::string text = parser.take_line(take_line(rest)); !text.empty()) {
      error = at_line(parser.line(), text);
      return std::nullopt;
    }
  }
  for (GuideChannel& channel : parser.channels()) {
    channel.name = channel.name.empty() ? channel.id : channel.name;
    if (const std::string text = complaint_about_keys(channel); !text.empty()) {
      error = at_line(channel.line, text);
      return std::nullopt;
    }
    if (!is_known_zone(channel.zone)) {
      error = at_line(channel.line, "the machine knows no zone '" + channel.zone + "'");
      return std::nullopt;
    }
  }
  return std::move(parser.channels());
}

std::string complaint_about_channel(const GuideChannel& channel) {
  struct stat status = {};
  if (stat(channel.folder.c_str(), &status) != 0 || !S_ISDIR(status.st_mode)) {
    return "'" + channel.folder + "' is no folder";
  }
  const std::string& file = channel.schedule.empty() ? channel.rendermgr : channel.schedule;
  const std::string path = in_folder(channel, file);
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
  return !text.empty() && text == clean_text(text);
}

std::string text_of_guide_config(const std::vector<GuideChannel>& channels) {
  std::string text;
  for (const GuideChannel& channel : channels) {
    text += (text.empty() ? "[" : "\n[") + channel.id + "]\n";
    for (const auto& [name, field] : text_keys) {
      if (!(channel.*field).empty()) {
        text += std::string(name) + " = " + channel.*field + "\n";
      }
    }
    text += std::string(previous_key) + " = " + (channel.previous ? "yes" : "no") + "\n";
  }
  return text;
}
