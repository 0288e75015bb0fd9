#include "platform/json_text.hpp"

namespace {

/// The escape of the character at the text's front, and how many bytes it stands for; empty when
/// the character goes out as it is.
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
