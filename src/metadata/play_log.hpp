#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>

#include "platform/metadata_v4.h"

// "play.log", which playout keeps beside a channel's schedule file: what aired, and with which
// metadata. One JSON object (RFC 8259) a line:
//   {"metadata": {"title": "News"}, "path": "media/news.mp4", "timestamp": 1772733600}

struct PlayLogEntry {
  std::string path;  ///< media path, as the schedule gave it
  std::map<std::string, std::string> metadata;
};

/// By the time at which the item started, seconds since the Unix epoch.
using PlayLog = std::map<int64_t, PlayLogEntry>;

/// Adds what the play log in the context's directory holds of the entries whose timestamp is
/// wanted; of lines with the same timestamp the last wins. A log that is missing adds nothing, a
/// read error is its end, and a line that is no JSON is reported on standard error and skipped. A
/// log goes back years, and only the entries that are kept cost memory.
void read_play_log(const metadata_v4_context* context, PlayLog& play_log,
                   const std::function<bool(int64_t)>& is_wanted);

// For users of the library. No program calls what stands below.

/// Adds all entries.
void read_play_log(const metadata_v4_context* context, PlayLog& play_log);

/// For the playout system, which keeps the log; the programs only read it. Replaces the play log in
/// the context's directory as a whole. A write that fails leaves the log that is there untouched.
void write_play_log(const metadata_v4_context* context, const PlayLog& play_log);
