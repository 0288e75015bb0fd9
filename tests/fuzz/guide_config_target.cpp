// The grabber's configuration, read, and written as --configure does.

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "fuzz/fuzz_target.hpp"
#include "station/station_config.hpp"

namespace {

bool are_equal(const StationChannel& one, const StationChannel& other) {
  return one.id == other.id && one.name == other.name && one.language == other.language &&
         one.zone == other.zone && one.folder == other.folder && one.schedule == other.schedule &&
         one.rendermgr == other.rendermgr && one.icon == other.icon &&
         one.previous == other.previous;
}

void require_sound(const std::vector<StationChannel>& channels) {
  std::set<std::string> ids;
  for (const StationChannel& channel : channels) {
    require(is_channel_id(channel.id), "an id is one that a guide can hold");
    require(ids.insert(channel.id).second, "no id is there twice");
    require(!channel.name.empty() && !channel.zone.empty() && !channel.folder.empty(),
            "a channel has a name, a zone and a folder");
    require(channel.schedule.empty() != channel.rendermgr.empty(), "a channel has one schedule");
  }
}

void require_read_back(const std::vector<StationChannel>& channels) {
  std::vector<ConfigMistake> mistakes;
  const auto again = parse_station_config(text_of_station_config(channels), mistakes);
  require(mistakes.empty() && std::ranges::equal(channels, again, are_equal),
          "a configuration that is written is read back as it was");
}

/// As an answer to --configure.
void try_as_value(std::string_view text) {
  if (text.empty() || !complaint_about_value(text).empty()) {
    return;
  }
  StationChannel channel;
  channel.id = "a.example";
  channel.name = text;
  channel.zone = "UTC";
  channel.folder = text;
  channel.schedule = text;
  require_read_back({channel});
}

}  // namespace

void run_target(std::string_view input) {
  const std::string content(input);
  try_as_value(input.substr(0, input.find('\n')));
  std::vector<ConfigMistake> mistakes;
  const auto channels = parse_station_config(content, mistakes);
  const auto lines = std::ranges::count(content, '\n') + 1;
  for (const ConfigMistake& mistake : mistakes) {
    require(mistake.line >= 1 && mistake.line <= lines, "a mistake is on a line of the file");
    require(!mistake.text.empty(), "a mistake has a text");
  }
  require(std::ranges::is_sorted(mistakes, {}, &ConfigMistake::line), "mistakes are in order");
  if (mistakes.empty()) {
    require_sound(channels);
    require_read_back(channels);
  }
}
