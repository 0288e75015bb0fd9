#include "publish/station_guide.hpp"

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <limits>

#include "station/channel_jobs.hpp"
#include "station/xmltv_guide.hpp"

StationGuide::StationGuide(WebFolder& folder, time_t now)
    : folder_(folder),
      now_(now),
      old_(folder.path() + "/" + station_guide_page),
      programmes_(open_scratch_file()) {
}

bool StationGuide::add_new(const StationChannel& channel, int file, const ChannelPart& part) {
  channels_.push_back(&channel);
  count_ += part.count;
  return copy_part(file, part, programmes_.get());
}

bool StationGuide::add_old(const StationChannel& channel, bool is_asked) {
  if (!is_asked && !old_.has_channel(channel.id)) {
    return true;
  }
  is_lacking_ = is_lacking_ || is_asked;
  channels_.push_back(&channel);
  const time_t from = is_asked ? now_ : std::numeric_limits<time_t>::min();
  const auto old = old_.copy_ahead(channel.id, from, programmes_.get());
  count_ += old ? old->copied : 0;
  unreadable_ += old ? old->unreadable : 0;
  return old.has_value();
}

PageRow StationGuide::publish(const std::string& error) {
  PageRow row{"*", std::string(xmltv_format), Outcome::failed, "", count_, 0};
  if (!old_.is_readable() || !error.empty()) {
    row.reason = error.empty() ? std::strerror(old_.error()) : error;
    return row;
  }
  if (is_lacking_ && count_ == 0 && old_.is_there()) {
    row.outcome = Outcome::refused;
    row.reason = "no channel has a programme ahead";
    return row;
  }
  const auto write = [&](int file) {
    ChannelPart all;
    const off_t bytes = lseek(programmes_.get(), 0, SEEK_END);
    all.bytes = static_cast<uint64_t>(bytes);
    return bytes >= 0 && write_fully(file, guide_head(channels_)) &&
           copy_part(programmes_.get(), all, file) && write_fully(file, guide_foot);
  };
  row.outcome = folder_.publish(station_guide_page, write, row.reason);
  return row;
}
