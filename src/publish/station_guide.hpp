#pragma once

#include <cstdint>
#include <ctime>
#include <string>
#include <vector>

#include "platform/system/file.hpp"
#include "publish/page_report.hpp"
#include "publish/web_folder.hpp"
#include "station/channel_report.hpp"
#include "station/old_guide.hpp"
#include "station/station_config.hpp"

/// The name of the station's guide in the web folder.
inline constexpr const char* station_guide_page = "station.xmltv";

/// The XMLTV guide of all channels in one web folder. A channel that is refused or failed keeps its
/// programmes of the old guide, as far as they lie ahead. One that the run is not about keeps all.
class StationGuide {
 public:
  /// Reads the old guide in the folder.
  StationGuide(WebFolder& folder, time_t now);

  /// Adds the programmes of a channel. False, with errno set, when that fails.
  bool add_new(const StationChannel& channel, int file, const ChannelPart& part);

  /// Adds what the old guide has of the channel. The channel is left out if the old guide does not
  /// have it and `is_asked` is false. False, with errno set, when that fails.
  bool add_old(const StationChannel& channel, bool is_asked);

  /// How many programmes of the old guide were left out because they are not well-formed XML.
  uint64_t unreadable() const { return unreadable_; }

  /// Publishes the guide, unless `error` says that it is not whole. The row says what became of it.
  PageRow publish(const std::string& error);

 private:
  WebFolder& folder_;
  time_t now_;
  OldGuide old_;
  FileDescriptor programmes_;
  std::vector<const StationChannel*> channels_;
  uint64_t count_ = 0;
  uint64_t unreadable_ = 0;
  bool is_lacking_ = false;  ///< a channel was refused or failed
};
