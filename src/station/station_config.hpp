#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The file that is read when the command line names none.
inline constexpr const char* station_config_path = "/etc/nv8x/station.conf";

/// Which findings of the checker keep a channel from being published.
enum class CheckLevel { errors, warnings, off };

/// A channel of the station, as its section of the configuration describes it.
struct StationChannel {
  std::string id;
  std::string name;        ///< the name to show; the id if there is none
  std::string language;    ///< of the texts, such as "en"; may be empty
  std::string zone;        ///< the zone of the schedule's times
  std::string folder;      ///< relative paths of the channel start here
  std::string schedule;    ///< schedule file
  std::string rendermgr;   ///< or the render-manager file that names the schedule
  std::string icon;        ///< address of a picture; may be empty
  bool previous = false;   ///< whether to show the programme on air when the first day begins
  std::string station_id;  ///< first column of the listing formats
  std::vector<std::string> formats = {"html"};
  std::string web_folder = "/var/www/guide";  ///< where its pages go
  CheckLevel check = CheckLevel::errors;
  uint32_t min_items = 1;     ///< minimum number of announced items
  uint32_t min_percent = 50;  ///< the same in percent of what was last published, 0 to 100
  int line = 0;               ///< line number of its section
};

/// Something in the configuration that is wrong.
struct ConfigMistake {
  int line = 0;  ///< from 1
  std::string text;
};

/// The name of the format that is also the station's guide.
inline constexpr std::string_view xmltv_format = "xmltv";

/// The names that `formats` may have, in the order in which pages are made.
inline constexpr std::string_view page_formats[] = {"html", "xml",       "json",
                                                    "rovi", "gracenote", "xmltv"};

/// The configuration is like an INI file, with one section for each channel:
///   [kbt1.example]
///   name = Kelmouth Bay
/// The section [*] has the values of keys that a channel's own section does not have. In its
/// folder, %i is the channel's id and %% a percent sign. Lines that begin with "#" or ";" are
/// comments. In other lines a comment begins with a blank and one of these characters. Returns the
/// channels in the order of the file. They are usable if nothing is added to `mistakes`, which is
/// in the order of lines.
std::vector<StationChannel> parse_station_config(std::string_view content,
                                                 std::vector<ConfigMistake>& mistakes);

/// Reads and parses the file. Prints each mistake, or why the file cannot be read, on standard
/// error: "PROGRAM: FILE:LINE: TEXT". Nothing if there is one. `advice` is printed after the reason
/// that the file cannot be read.
std::optional<std::vector<StationChannel>> read_station_config(const char* program,
                                                               const std::string& path,
                                                               const char* advice = "");

/// A path as the channel's files name it. It is relative to the channel's folder unless it begins
/// with a slash.
std::string path_in_folder(const StationChannel& channel, const std::string& path);

/// What is wrong with the channel's folder, schedule or zone on this machine. Empty if nothing is.
std::string complaint_about_channel(const StationChannel& channel);

/// Why the text could not be read back from the configuration. Empty if it can.
std::string complaint_about_value(std::string_view text);

/// Whether the text can be a channel's id in the configuration and in the guide: UTF-8 without
/// control characters and double blanks. The id "*" is not possible.
bool is_channel_id(std::string_view text);

/// The text of a configuration file with these channels, without the keys of the publisher.
std::string text_of_station_config(const std::vector<StationChannel>& channels);
