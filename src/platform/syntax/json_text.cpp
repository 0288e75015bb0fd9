#include "platform/syntax/json_text.hpp"

#include <charconv>
#include <optional>
#include <system_error>

#include "platform/syntax/utf_8.hpp"

namespace {

/// The escape for the character at the front of the text, and in `length` how many bytes it
/// replaces. Empty when the character is copied unchanged.
std::string_view escape_of(std::string_view text, size_t& length) {
  length = 1;
  switch (text.front()) {
    case '"':
      return "\\\"";
    case '\\':
      return "\\\\";
    case '\b':
      return "\\b";
    case '\f':
      return "\\f";
    case '\n':
      return "\\n";
    case '\r':
      return "\\r";
    case '\t':
      return "\\t";
    default:
      break;
  }
  length = 3;
  if (text.starts_with("\xe2\x80\xa8")) {
    return "\\u2028";
  }
  if (text.starts_with("\xe2\x80\xa9")) {
    return "\\u2029";
  }
  return {};
}

bool may_need_escape(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte < 0x20 || byte == '"' || byte == '\\' || byte == 0xe2;
}

void append_control_character(std::string& out, char c) {
  constexpr std::string_view digits = "0123456789abcdef";
  const auto byte = static_cast<unsigned char>(c);
  out += "\\u00";
  out += digits[byte >> 4U];
  out += digits[byte & 0xfU];
}

constexpr size_t escape_length = 6;  // of "\\u" and four digits

/// The number of a "\\u" escape at the front of the text. Nothing when there is none.
std::optional<unsigned> escaped_number(std::string_view text) {
  unsigned number = 0;
  if (text.size() < escape_length || !text.starts_with("\\u")) {
    return std::nullopt;
  }
  const char* digits = text.data() + 2;
  const char* end = text.data() + escape_length;
  const auto [behind, error] = std::from_chars(digits, end, number, 16);
  return error == std::errc() && behind == end ? std::optional(number) : std::nullopt;
}

bool is_first_half(std::optional<unsigned> number) {
  return number && *number >= 0xd800 && *number <= 0xdbff;
}

bool is_second_half(std::optional<unsigned> number) {
  return number && *number >= 0xdc00 && *number <= 0xdfff;
}

}  // namespace

void append_json_string(std::string& out, std::string_view text) {
  out += '"';
  size_t begin = 0;
  for (size_t i = 0; i < text.size();) {
    if (!may_need_escape(text[i])) {
      ++i;
      continue;
    }
    size_t length = 0;
    const std::string_view escape = escape_of(text.substr(i), length);
    const bool is_control = static_cast<unsigned char>(text[i]) < 0x20;
    if (escape.empty() && !is_control) {
      ++i;
      continue;
    }
    out.append(text.substr(begin, i - begin));
    if (escape.empty()) {
      append_control_character(out, text[i]);
      length = 1;
    } else {
      out += escape;
    }
    i += length;
    begin = i;
  }
  out.append(text.substr(begin));
  out += '"';
}

std::string with_lone_surrogates_as_bytes(std::string_view json) {
  std::string out;
  out.reserve(json.size());
  while (!json.empty()) {
    const std::string_view plain = json.substr(0, json.find('\\'));
    out += plain;
    json.remove_prefix(plain.size());
    const std::optional<unsigned> number = escaped_number(json);
    size_t length = 2;  // of any other escape
    if (is_first_half(number) && is_second_half(escaped_number(json.substr(escape_length)))) {
      length = 2 * escape_length;
    } else if (number && (is_first_half(number) || is_second_half(number))) {
      append_utf_8(out, *number);
      json.remove_prefix(escape_length);
      continue;
    }
    const std::string_view escape = json.substr(0, length);
    out += escape;
    json.remove_prefix(escape.size());
  }
  return out;
}
