#include "writers/xml_escape.hpp"

#include <array>

namespace {

const char* entity_of(char c) {
  switch (c) {
    case '"':
      return "&quot;";
    case '&':
      return "&amp;";
    case '\'':
      return "&apos;";
    case '<':
      return "&lt;";
    default:
      return "&gt;";
  }
}

constexpr std::array<bool, 256> has_entity = [] {
  std::array<bool, 256> table{};
  for (const char c : {'"', '&', '\'', '<', '>'}) {
    table[static_cast<unsigned char>(c)] = true;
  }
  return table;
}();

}  // namespace

std::string xml_escape(std::string_view text) {
  std::string escaped;
  append_xml_escaped(escaped, text);
  return escaped;
}

void append_xml_escaped(std::string& out, std::string_view text) {
  text = text.substr(0, text.find('\0'));
  const char* plain = text.data();
  for (const char& c : text) {
    if (has_entity[static_cast<unsigned char>(c)]) {
      out.append(plain, &c);
      out.append(entity_of(c));
      plain = &c + 1;
    }
  }
  out.append(plain, text.data() + text.size());
}
