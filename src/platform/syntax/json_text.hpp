#pragma once

#include <string>
#include <string_view>

/// Appends a text as a JSON string (RFC 8259). Quote, backslash, control characters and the line
/// separators U+2028 and U+2029 are escaped; every other byte is copied, valid UTF-8 or not.
void append_json_string(std::string& out, std::string_view text);

/// A JSON text in which each escape of half a surrogate pair ("\udcff") has become the three bytes
/// that UTF-8 would give its number. Programs that pass on odd file names write such escapes, and
/// parsers refuse them.
std::string with_lone_surrogates_as_bytes(std::string_view json);
