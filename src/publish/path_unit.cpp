#include "publish/path_unit.hpp"

#include <filesystem>
#include <set>

namespace {

constexpr const char* head =
    "# Made by nv8x_schedule_publish --print-path-unit. Make it anew when a channel is added, or\n"
    "# when its folder or schedule changes.\n"
    "\n"
    "[Unit]\n"
    "Description=Programme guides of the station, when a schedule changes\n"
    "Documentation=man:nv8x_schedule_publish(1)\n"
    "\n"
    "[Path]\n";
constexpr const char* foot =
    "\n"
    "[Install]\n"
    "WantedBy=paths.target\n";

/// In units, a percent sign stands before a letter with a meaning.
std::string escaped(const std::string& path) {
  std::string out;
  for (const char c : path) {
    out += c == '%' ? "%%" : std::string(1, c);
  }
  return out;
}

std::string watched_path(const StationChannel& channel) {
  const std::string& file = channel.schedule.empty() ? channel.rendermgr : channel.schedule;
  std::error_code error;
  const auto folder = std::filesystem::absolute(channel.folder, error);
  return (folder / file).lexically_normal().string();
}

}  // namespace

std::string path_unit_of(const std::vector<StationChannel>& channels) {
  std::string out = head;
  std::set<std::string> paths;
  for (const StationChannel& channel : channels) {
    const std::string path = watched_path(channel);
    if (paths.insert(path).second) {
      out += "PathChanged=" + escaped(path) + "\n";
    }
  }
  return out + foot;
}
