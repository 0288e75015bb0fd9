#include "publish/check_config.hpp"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <map>
#include <optional>
#include <utility>

#include "publish/channel_pages.hpp"
#include "publish/publish_options.hpp"
#include "publish/station_guide.hpp"
#include "publish/station_index.hpp"
#include "schedule/rendermgr.hpp"

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

/// The files that tell what the channels air. A page must not take their place, whatever the names
/// are by which both are reached.
class ScheduleFiles {
 public:
  explicit ScheduleFiles(const std::vector<StationChannel>& channels) {
    for (const StationChannel& channel : channels) {
      add(channel, channel.schedule);
      add(channel, channel.rendermgr);
      if (!channel.rendermgr.empty()) {
        add(channel, read_rendermgr(path_in_folder(channel, channel.rendermgr)).value_or(""));
      }
    }
  }

  std::string complaint_about_pages(const StationChannel& channel) const {
    for (const std::string& format : channel.formats) {
      const std::string page = page_name(channel.id, format);
      if (std::string text = complaint("its page", page, channel.web_folder); !text.empty()) {
        return text;
      }
    }
    for (const char* page : {station_guide_page, station_index_page}) {
      if (std::string text = complaint("the station's page", page, channel.web_folder);
          !text.empty()) {
        return text;
      }
    }
    return {};
  }

 private:
  using FileId = std::pair<dev_t, ino_t>;

  static std::optional<FileId> id_of(const std::string& path) {
    struct stat status = {};
    return stat(path.c_str(), &status) == 0 ? std::optional(FileId{status.st_dev, status.st_ino})
                                            : std::nullopt;
  }

  void add(const StationChannel& channel, const std::string& file) {
    const std::string path = path_in_folder(channel, file);
    if (const auto id = file.empty() ? std::nullopt : id_of(path)) {
      paths_.emplace(*id, path);
    }
  }

  std::string complaint(const char* what, const std::string& page,
                        const std::string& folder) const {
    const auto id = id_of(folder + "/" + page);
    if (!id || !paths_.contains(*id)) {
      return {};
    }
    return std::string(what) + " '" + page + "' would replace '" + paths_.at(*id) + "'";
  }

  std::map<FileId, std::string> paths_;
};

template <typename Complain>
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
  const ScheduleFiles schedules(channels);
  return print_mistakes(config_file, channels, [&](const StationChannel& channel) {
    const std::string complaint = complaint_about_page_name(channel.id);
    return complaint.empty() ? schedules.complaint_about_pages(channel) : complaint;
  });
}

bool print_machine_mistakes(const std::string& config_file,
                            const std::vector<StationChannel>& channels) {
  return print_mistakes(config_file, channels, [](const StationChannel& channel) {
    const std::string complaint = complaint_about_channel(channel);
    return complaint.empty() ? complaint_about_web_folder(channel.web_folder) : complaint;
  });
}
