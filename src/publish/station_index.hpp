#pragma once

#include <ctime>
#include <map>
#include <string>
#include <vector>

#include "publish/page_report.hpp"
#include "publish/web_folder.hpp"
#include "station/now_and_next.hpp"
#include "station/station_config.hpp"

/// The name of the station's page in the web folder.
inline constexpr const char* station_index_page = "index.html";

/// The name of the part of a channel's file that has this text.
inline constexpr const char* now_part = "now";

/// What the station's page says of the channel's programmes. The process must be in its zone.
std::string now_html(const NowAndNext& programmes, const StationChannel& channel, time_t now);

/// The station's page: the channels of one web folder, what is on now and next, and links to the
/// pages that are there. A channel that the run is not about keeps what the old page says.
class StationIndex {
 public:
  /// Reads the old page in the folder.
  explicit StationIndex(WebFolder& folder);

  /// The text of now_html for a channel that the run is about. Empty if it is not known.
  void set_now(const StationChannel& channel, std::string text) {
    now_[channel.id] = std::move(text);
  }

  /// Publishes the page with these channels. The row says what became of it.
  PageRow publish(const std::vector<const StationChannel*>& channels);

 private:
  std::string section_of(const StationChannel& channel) const;
  std::string old_now(const StationChannel& channel) const;

  WebFolder& folder_;
  std::string old_;
  std::map<std::string, std::string> now_;  ///< by id of the channel
};
