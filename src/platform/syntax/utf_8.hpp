#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Removes one character from the front of the text. Nothing, with the text unchanged, when it does
/// not begin with valid UTF-8 (RFC 3629).
std::optional<uint32_t> take_utf_8(std::string_view& text);

/// Appends a code point, at most 0x10ffff. Half of a surrogate pair is written as three bytes, as
/// its number would be.
void append_utf_8(std::string& out, uint32_t c);
