#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Takes a character off the text's front; nothing, with the text as it was, when it begins with no
/// UTF-8 (RFC 3629).
std::optional<uint32_t> take_utf_8(std::string_view& text);

/// Appends a code point, at most 0x10ffff. A half of a surrogate pair becomes the three bytes that
/// its number would have.
void append_utf_8(std::string& out, uint32_t c);
