#include "platform/syntax/utf_8.hpp"

#include <array>
#include <cstring>

namespace {

/// Whether no byte has its highest bit set.
bool is_ascii(std::string_view text) {
  constexpr uint64_t highest_bits = 0x8080808080808080;
  uint64_t bits = 0;
  for (; text.size() >= sizeof bits; text.remove_prefix(sizeof bits)) {
    uint64_t bytes = 0;
    std::memcpy(&bytes, text.data(), sizeof bytes);
    bits |= bytes;
  }
  for (const char c : text) {
    bits |= static_cast<unsigned char>(c);
  }
  return (bits & highest_bits) == 0;
}

}  // namespace

std::optional<uint32_t> take_long_utf_8(std::string_view& text) {
  const auto byte = [&](size_t i) {
    return static_cast<uint32_t>(static_cast<unsigned char>(i < text.size() ? text[i] : 0));
  };
  const uint32_t first = byte(0);
  const size_t length = first < 0xc2    ? 0
                        : first < 0xe0  ? 2
                        : first < 0xf0  ? 3
                        : first <= 0xf4 ? 4
                                        : 0;
  if (length == 0) {
    return std::nullopt;
  }
  uint32_t c = first & (0xffU >> (length + 1));
  for (size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xc0U) != 0x80) {
      return std::nullopt;
    }
    c = c << 6U | (byte(i) & 0x3fU);
  }
  constexpr std::array least = {0U, 0U, 0x80U, 0x800U, 0x10000U};  // by length
  if (c < least.at(length) || c > 0x10ffff || (c >= 0xd800 && c < 0xe000)) {
    return std::nullopt;
  }
  text.remove_prefix(length);
  return c;
}

size_t find_no_utf_8(std::string_view text) {
  if (is_ascii(text)) {
    return std::string_view::npos;
  }
  for (std::string_view rest = text; !rest.empty();) {
    if (!take_utf_8(rest)) {
      return text.size() - rest.size();
    }
  }
  return std::string_view::npos;
}

void append_utf_8(std::string& out, uint32_t c) {
  const auto append_tail = [&](unsigned shift) {
    out += static_cast<char>(0x80U | ((c >> shift) & 0x3fU));
  };
  if (c < 0x80) {
    out += static_cast<char>(c);
    return;
  }
  if (c < 0x800) {
    out += static_cast<char>(0xc0U | (c >> 6U));
  } else if (c < 0x10000) {
    out += static_cast<char>(0xe0U | (c >> 12U));
    append_tail(6);
  } else {
    out += static_cast<char>(0xf0U | (c >> 18U));
    append_tail(12);
    append_tail(6);
  }
  append_tail(0);
}
