#include "driver/run_steps.hpp"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <optional>
#include <string>
#include <utility>

#include "driver/report_error.hpp"
#include "platform/system/file.hpp"
#include "schedule/rendermgr.hpp"
#include "schedule/run_options.hpp"

namespace {

void check_given_schedule(const std::string& path) {
  switch (look_at(path)) {
    case FileState::missing:
      report_errorf("Schedule file %s, cannot %s", path.c_str(), std::strerror(errno));
    case FileState::link:
    case FileState::other:
      report_errorf("Schedule file %s, is not a file", path.c_str());
    case FileState::regular:
      break;
  }
}

void check_rendermgr(const std::string& path) {
  switch (look_at(path)) {
    case FileState::missing:
      report_errorf("Rendermgr file %s, cannot stat, %s", path.c_str(), std::strerror(errno));
    case FileState::link:
    case FileState::other:
      report_errorf("Rendermgr file %s, is not a file", path.c_str());
    case FileState::regular:
      break;
  }
}

/// Checks the path, however it was found, once more before reading. The message goes to standard
/// error only, also in CGI mode.
bool check_located_schedule(const std::string& path) {
  switch (look_at(path)) {
    case FileState::missing:
      std::fprintf(stderr, "Schedule file %s, cannot %s\n", path.c_str(), std::strerror(errno));
      return false;
    case FileState::link:
    case FileState::other:
      std::fprintf(stderr, "Schedule file %s, is not a file\n", path.c_str());
      return false;
    case FileState::regular:
      break;
  }
  return true;
}

/// The schedule path that a render-manager file names. Empty when it names none.
std::string schedule_path_of(const std::string& rendermgr_path) {
  std::optional<std::string> path = read_rendermgr(rendermgr_path);
  if (!path) {
    std::fprintf(stderr, "Unable to open %s\n", rendermgr_path.c_str());
    report_error("Unable to locate item associated with rendermgr/channel");
  }
  return *std::move(path);
}

}  // namespace

bool locate_schedule() {
  RunOptions& options = run_options;
  if (options.schedule_path.empty() && options.rendermgr_path.empty() && options.channel < 0) {
    report_error("You must specify a schedule, rendermgr, or channel");
  }
  if (options.rendermgr_path.empty() && options.channel >= 0) {
    options.rendermgr_path = rendermgr_path_of_channel(options.channel);
  }
  if (options.rendermgr_path.empty()) {
    check_given_schedule(options.schedule_path);
  } else {
    check_rendermgr(options.rendermgr_path);
    options.schedule_path = schedule_path_of(options.rendermgr_path);
    if (options.schedule_path.empty()) {
      report_error("No schedule file");
    }
  }
  if (!check_located_schedule(options.schedule_path)) {
    return false;
  }
  options.rendermgr_path.clear();
  std::fprintf(stderr, "Schedule file location: %s\n", options.schedule_path.c_str());
  return true;
}
