#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>

#include "platform/metadata_v4.h"

// The file "play.log", which playout keeps beside a channel's schedule file. It says what aired and
// with which metadata, as one JSON object (RFC 8259) on each line:
//   {"metadata": {"title": "News"}, "path": "media/news.mp4", "timestamp": 1772733600}

struct PlayLogEntry {
  std::string path;  ///< media path as in the schedule
  std::map<std::string, std::string> metadata;
};

/// The key is the time at which the item started, in seconds since the Unix epoch.
using PlayLog = std::map<int64_t, PlayLogEntry>;

/// Adds the wanted entries of the play log in the context's directory. `is_wanted` gets the
/// timestamp: a log covers years, and only the entries that are kept cost memory. Of lines with the
/// same timestamp the last one counts. A missing log adds nothing. A read error counts as the end
/// of the log. A line that is not JSON is reported on standard error and skipped.
void read_play_log(const metadata_v4_context* context, PlayLog& play_log,
                   const std::function<bool(int64_t)>& is_wanted);

// For users of the library. No program calls what stands below.

/// Adds all entries.
void read_play_log(const metadata_v4_context* context, PlayLog& play_log);

/// For the playout system, which keeps the log; the programs only read it. Replaces the whole play
/// log in the context's directory. If writing fails, the old log stays unchanged.
void write_play_log(const metadata_v4_context* context, const PlayLog& play_log);
