#pragma once

#include <ctime>
#include <string>

#include "station/programme_texts.hpp"

/// One programme of a channel's guide.
struct Programme {
  time_t start;  ///< calendar time
  time_t stop;   ///< -1: not known
  std::string path;
  std::string label;
  std::string event_id;
  bool fills_unit;  ///< the only programme of its unit
  ProgrammeTexts texts;
};

/// Whether the time's local year has four digits. XMLTV has no room for more.
bool has_four_digit_year(time_t t);

/// Appends the programme as an XMLTV element, with times in the local zone. The stop is left out
/// when it is not known, is not after the start or has a year of five digits.
void append_programme(std::string& out, const Programme& programme, const std::string& channel,
                      const std::string& language);
