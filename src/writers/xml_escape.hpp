#pragma once

#include <string>
#include <string_view>

/// The text with the five bytes that have a meaning in XML and HTML (XML 1.0, 2.4) replaced by
/// entities. Every other byte is copied, up to the first NUL byte, which ends the text.
std::string xml_escape(std::string_view text);

/// Appends the same.
void append_xml_escaped(std::string& out, std::string_view text);
