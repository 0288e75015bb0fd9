#pragma once

#include <string>
#include <string_view>
#include <vector>

/// A whole run in one text: parts divided by lines that hold "%%" alone. Parts that are missing are
/// empty.
struct WholeRunInput {
  std::string zone;                    ///< first word of the first line: TZ
  std::vector<std::string> arguments;  ///< its other words: the command line
  std::string_view schedule;
  std::string_view play_log;
  std::string_view sidecar;      ///< of clip.mp4, which the schedule may name
  std::string_view subschedule;  ///< inner.schedule, which the schedule may name
};

WholeRunInput split_whole_run_input(std::string_view input);

/// Writes its files into the folder of the process, which becomes the current one. There is also
/// the example clip, clip.mp4.
void write_whole_run_files(const WholeRunInput& input);

/// Sets TZ; UTC for no zone, and for a path, as that would read any file of the machine.
void set_whole_run_zone(const std::string& zone);
