#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// A channel of the guide, as its section of the configuration describes it.
struct GuideChannel {
  std::string id;
  std::string name;       ///< the name to show; the id if there is none
  std::string language;   ///< of the texts, such as "en"; may be empty
  std::string zone;       ///< the zone of the schedule's times
  std::string folder;     ///< relative paths of the channel start here
  std::string schedule;   ///< schedule file
  std::string rendermgr;  ///< or the render-manager file that names the schedule
  std::string icon;       ///< address of a picture; may be empty
  bool previous = false;  ///< whether to show the programme on air when the first day begins
  int line = 0;           ///< line number of its section
};

/// The configuration is like an INI file, with one section for each channel:
///   [kbt1.example]
///   name = Kelmouth Bay
/// Lines that begin with "#" or ";" are comments. In other lines a comment begins with a blank and
/// one of these characters. Nothing when the configuration is not valid; `error` is then
/// "LINE: TEXT".
std::optional<std::vector<GuideChannel>> parse_guide_config(const std::string& content,
                                                            std::string& error);

/// What is wrong with the channel's folder, schedule or zone on this machine. Empty if nothing is.
std::string complaint_about_channel(const GuideChannel& channel);

/// Why the text could not be read back from the configuration. Empty if it can.
std::string complaint_about_value(std::string_view text);

/// Whether the text can be a channel's id in the configuration and in the guide: UTF-8 without
/// control characters and double blanks.
bool is_channel_id(std::string_view text);

/// The text of a configuration file with these channels.
std::string text_of_guide_config(const std::vector<GuideChannel>& channels);
