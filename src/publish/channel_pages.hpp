#pragma once

#include <cstdint>
#include <ctime>
#include <optional>
#include <string>
#include <string_view>

#include "station/channel_process.hpp"

/// How many announced items were published last, and when.
struct LastCount {
  uint64_t items;
  time_t time;
};

struct PagesAsked {
  bool force = false;  ///< make the pages even if the guards find something
  std::optional<LastCount> last;
};

/// The name of the page of a format in the web folder.
std::string page_name(const std::string& channel, const std::string& format);

/// The text of a link to such a page.
std::string page_label(std::string_view format);

/// The task of a channel's process. Loads the schedule once and makes the page of every format from
/// it. The parts of the report are the pages, and the text for the station's page (now_part); of a
/// page that no reader could parse it has the fault only. Without `force`, no page is made when the
/// guards find something.
void make_pages(const ChannelWork& work, int file, const PagesAsked& asked);
