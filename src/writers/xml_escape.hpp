#pragma once

#include <string>

/// The text with the five bytes that have a meaning in XML and HTML (XML 1.0, 2.4) replaced by
/// entities. Every other byte is copied; the text ends at its NUL.
std::string xml_escape(const char* text);

/// Appends the same.
void append_xml_escaped(std::string& out, const char* text);
