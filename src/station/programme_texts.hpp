#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/metadata_handles.hpp"
#include "schedule/schedule.hpp"

/// What a guide says of an item, besides its times. The texts are UTF-8 without control characters.
/// Runs of blanks are replaced by one blank.
struct ProgrammeTexts {
  std::string title;
  std::string sub_title;
  std::string description;
  std::vector<std::pair<const char*, std::string>> credits;  ///< the XMLTV element and the name
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

/// The texts of an item from its metadata set, which may be null.
ProgrammeTexts texts_of_item(const ScheduleItem& item, const MetadataSet& set);

/// Makes the text valid for XML. Bytes that are not UTF-8 (RFC 3629) are read as Windows-1252.
/// Characters that XML 1.0 does not allow become blanks. A run of blanks becomes one blank, and
/// blanks at both ends are removed.
std::string clean_text(std::string_view text);
