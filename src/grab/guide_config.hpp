#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// A channel of the guide, as its section of the configuration has it.
struct GuideChannel {
  std::string id;
  std::string name;       ///< to show; the id when there is none
  std::string language;   ///< of the texts, such as "en"; may be empty
  std::string zone;       ///< in which the schedule's times are local
  std::string folder;     ///< to which its paths are relative
  std::string schedule;   ///< schedule file
  std::string rendermgr;  ///< or the render-manager file that names it
  std::string icon;       ///< address of a picture; may be empty
  bool previous = false;  ///< show what is on air at the beginning of the first day
  int line = 0;           ///< of its section
};

/// Sections as INI files have them, one a channel:
///   [kbt1.example]
///   name = Kelmouth Bay
/// Lines that begin with "#" or ";" are comments, and so is what stands behind a blank and one of
/// those. Nothing when something in it is wrong; `error` is then "LINE: TEXT".
std::optional<std::vector<GuideChannel>> parse_guide_config(const std::string& content,
                                                            std::string& error);

/// What is wrong with the channel's folder, schedule or zone on this machine; empty: nothing.
std::string complaint_about_channel(const GuideChannel& channel);

/// Why the text would not be read from the configuration as it is written there; empty: it would.
std::string complaint_about_value(std::string_view text);

/// Whether the text can be a channel's id, the same in the configuration as in the guide: UTF-8
/// without control characters and doubled blanks.
bool is_channel_id(std::string_view text);

/// The sections as they are written to a file.
std::string text_of_guide_config(const std::vector<GuideChannel>& channels);
