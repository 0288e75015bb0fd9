#pragma once

#include <string_view>

/// The documents that a station makes. A finding about harm that only some of them show depends on
/// them.
struct MadeFormats {
  bool html = true;
  bool xml = true;
  bool json = true;
  bool xmltv = true;
  bool rovi = false;
  bool gracenote = false;

  bool has_listing() const { return rovi || gracenote; }
};

/// Reads names with commas between them: "html,xml". Only these are made. Returns false if a name
/// is unknown.
bool read_made_formats(std::string_view names, MadeFormats& formats);
