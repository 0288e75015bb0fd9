#include "station/config_keys.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>
#include <utility>
#include <vector>

#include "platform/syntax/nearest_word.hpp"
#include "platform/syntax/text.hpp"

namespace {

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

}  // namespace

const ConfigKey* find_config_key(std::string_view name) {
  const auto* const key = std::ranges::find(config_keys, name, &ConfigKey::name);
  return key != config_keys.end() ? key : nullptr;
}

std::string complaint_about_unknown_key(std::string_view name) {
  std::vector<std::string_view> names;
  names.reserve(config_keys.size());
  for (const ConfigKey& key : config_keys) {
    names.push_back(key.name);
  }
  return "unknown key '" + std::string(name) + "'" + did_you_mean(name, names);
}
