#pragma once

#include <cstdint>
#include <ctime>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/system/file.hpp"
#include "station/channel_programmes.hpp"
#include "station/station_config.hpp"

/// What became of a channel's programmes.
struct OldProgrammes {
  uint64_t copied = 0;
  uint64_t unreadable = 0;  ///< left out, because no reader could parse a guide with them
};

/// A guide that was published before. Only guides as these programs write them are understood.
class OldGuide {
 public:
  /// No guide.
  OldGuide() = default;

  /// Reads the guide in the file, which may be missing. Sets errno, and is not readable, when the
  /// file cannot be read.
  explicit OldGuide(const std::string& path);

  bool is_readable() const { return error_ == 0; }
  int error() const { return error_; }
  /// Whether there is a guide at all.
  bool is_there() const { return file_.is_open(); }
  bool has_channel(const std::string& id) const;

  /// The number of programmes of the channel that start in [begin, end). Sets `last` to the start
  /// of the last of them.
  uint64_t count(const std::string& id, time_t begin, time_t end, time_t& last) const;

  /// Appends the channel's programmes that end after `now` to the file. Nothing, with errno set,
  /// when that fails.
  std::optional<OldProgrammes> copy_ahead(const std::string& id, time_t now, int to) const;

 private:
  struct OldProgramme {
    time_t start;
    time_t end;  ///< the start, if the stop is not known
    uint64_t offset;
    uint64_t bytes;
  };

  void index_channels(const std::string& content);
  void index_programmes(const std::string& content);

  FileDescriptor file_;
  int error_ = 0;
  std::map<std::string, std::vector<OldProgramme>> channels_;  ///< by id, as escaped in the guide
};

/// Why the new programmes are too few for what the old guide has in the same time, from `now` on.
/// Empty if they are not.
std::string complaint_about_programmes(const std::vector<Programme>& programmes,
                                       const OldGuide& guide, const StationChannel& channel,
                                       const GuideTimes& times, time_t now);
