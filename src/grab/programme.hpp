#pragma once

#include <ctime>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/metadata_handles.hpp"
#include "schedule/schedule.hpp"

/// What a guide says of an item, but for its times. The texts are UTF-8, without control characters
/// and with one blank for each run of them.
struct ProgrammeTexts {
  std::string title;
  std::string sub_title;
  std::string description;
  std::vector<std::pair<const char*, std::string>> credits;  ///< XMLTV's element and the name
  std::string date;
  std::vector<std::string> categories;
  std::string language;
  std::string season;   ///< digits, or empty
  std::string episode;  ///< the same
  bool is_hd = false;
  bool is_repeat = false;
  bool has_captions = false;
  std::string rating_system;
  std::string rating;
};

/// One programme of a channel's guide.
struct Programme {
  time_t start;  ///< calendar time
  time_t stop;   ///< -1: not known
  std::string path;
  std::string label;
  std::string event_id;
  bool fills_unit;  ///< it is all that its unit airs
  ProgrammeTexts texts;
};

/// What the metadata of an item (or none) say of it.
ProgrammeTexts texts_of_item(const ScheduleItem& item, const MetadataSet& set);

/// Whether XMLTV has room for the time's local year, which has four digits there.
bool has_four_digit_year(time_t t);

/// Appends the programme as an element of XMLTV, with times in the local zone. A stop that is not
/// known, lies before the start or has a year of five digits is left out.
void append_programme(std::string& out, const Programme& programme, const std::string& channel,
                      const std::string& language);

/// The text as XML may hold it: bytes that are no UTF-8 (RFC 3629) are taken as Windows-1252,
/// characters that XML 1.0 has no place for become blanks, and runs of blanks one; those at the
/// ends go.
std::string clean_text(std::string_view text);
