#pragma once

#include <string>
#include <string_view>

/// Appends the text and replaces the five bytes that have a meaning in XML and HTML (XML 1.0, 2.4)
/// by entities. All other bytes are copied. A NUL byte ends the text.
void append_xml_escaped(std::string& out, std::string_view text);

// For users of the library. No program calls what stands below.

/// The text that append_xml_escaped appends.
std::string xml_escape(std::string_view text);
