#pragma once

#include <string>
#include <string_view>

/// Appends a text as a JSON string (RFC 8259). Quotes, backslashes, control characters and the line
/// separators U+2028 and U+2029 are escaped. Every other byte is copied, even if it is not valid
/// UTF-8.
void append_json_string(std::string& out, std::string_view text);

/// Replaces each escape of half a surrogate pair ("\udcff") in a JSON text by the three bytes that
/// UTF-8 would use for its number. Some programs write such escapes for odd file names, but JSON
/// parsers refuse them.
std::string with_lone_surrogates_as_bytes(std::string_view json);
