#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The same as take_utf_8, for characters of more than one byte.
std::optional<uint32_t> take_long_utf_8(std::string_view& text);

/// Removes one character from the front of the text, which must not be empty. Nothing, with the
/// text unchanged, when it does not begin with valid UTF-8 (RFC 3629).
inline std::optional<uint32_t> take_utf_8(std::string_view& text) {
  const auto first = static_cast<unsigned char>(text.front());
  if (first >= 0x80) {
    return take_long_utf_8(text);
  }
  text.remove_prefix(1);
  return first;
}

/// The first byte that does not belong to valid UTF-8; npos when the whole text is valid.
size_t find_no_utf_8(std::string_view text);

/// Appends a code point, at most 0x10ffff. Half of a surrogate pair is written as three bytes, as
/// its number would be.
void append_utf_8(std::string& out, uint32_t c);
