#pragma once

#include <string>
#include <string_view>

/// Appends a text as a JSON string (RFC 8259). Quote, backslash, control characters and the line
/// separators U+2028 and U+2029 are escaped; every other byte is copied, valid UTF-8 or not.
void append_json_string(std::string& out, std::string_view text);
