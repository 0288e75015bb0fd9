#include "station/channel_schedule.hpp"

#include <cerrno>
#include <cstring>

#include "platform/system/file.hpp"
#include "platform/system/messages.hpp"
#include "schedule/complete_schedule.hpp"
#include "schedule/rendermgr.hpp"
#include "schedule/schedule_reader.hpp"

std::optional<std::string> schedule_path_of(const StationChannel& channel, std::string& error) {
  if (!channel.schedule.empty()) {
    return channel.schedule;
  }
  std::optional<std::string> path = read_rendermgr(channel.rendermgr);
  if (!path) {
    fail_run_for_shortage("'%s' cannot be read: %s", channel.rendermgr.c_str());
  }
  if (!path || path->empty()) {
    error = "'" + channel.rendermgr + "' names no schedule";
    return std::nullopt;
  }
  return path;
}

bool read_channel_schedule(Schedule& schedule, const std::string& path, std::string& error) {
  if (look_at(path) == FileState::link) {
    error = "'" + path + "' is a link; name the file that it leads to";
    return false;
  }
  if (!read_schedule_file(schedule, path.c_str(), Links::refused)) {
    fail_run_for_shortage("'%s' cannot be read: %s", path.c_str());
    error = "'" + path + "' cannot be read: " + std::strerror(errno);
    return false;
  }
  if (schedule.unit_length == 0) {
    error = "'" + path + "' is of a type without unit";
    return false;
  }
  return complete_schedule(schedule, error);
}
