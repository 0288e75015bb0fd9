// The grabber's configuration, read, and written as --configure does.

#include <algorithm>
#include <cstdlib>
#include <set>
#include <string>
#include <vector>

#include "fuzz/fuzz_target.hpp"
#include "grab/guide_config.hpp"

namespace {

bool are_equal(const GuideChannel& one, const GuideChannel& other) {
  return one.id == other.id && one.name == other.name && one.language == other.language &&
         one.zone == other.zone && one.folder == other.folder && one.schedule == other.schedule &&
         one.rendermgr == other.rendermgr && one.icon == other.icon &&
         one.previous == other.previous;
}

void require_sound(const std::vector<GuideChannel>& channels) {
  std::set<std::string> ids;
  for (const GuideChannel& channel : channels) {
    require(is_channel_id(channel.id), "an id is one that a guide can hold");
    require(ids.insert(channel.id).second, "no id is there twice");
    require(!channel.name.empty() && !channel.zone.empty() && !channel.folder.empty(),
            "a channel has a name, a zone and a folder");
    require(channel.schedule.empty() != channel.rendermgr.empty(), "a channel has one schedule");
  }
}

void require_read_back(const std::vector<GuideChannel>& channels) {
  std::string error;
  const auto again = parse_guide_config(text_of_guide_config(channels), error);
  require(again && std::ranges::equal(channels, *again, are_equal),
          "a configuration that is written is read back as it was");
}

/// As an answer to --configure.
void try_as_value(std::string_view text) {
  if (text.empty() || !complaint_about_value(text).empty()) {
    return;
  }
  GuideChannel channel;
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
  std::string error;
  const auto channels = parse_guide_config(content, error);
  if (!channels) {
    const auto lines = std::ranges::count(content, '\n') + 1;
    char* behind_line = nullptr;
    const long line = std::strtol(error.c_str(), &behind_line, 10);
    const std::string_view text = behind_line;
    require(line >= 1 && line <= lines, "a mistake is on a line of the file");
    require(text.starts_with(": ") && text.size() > 2, "a mistake has a text");
    return;
  }
  require_sound(*channels);
  require_read_back(*channels);
}
