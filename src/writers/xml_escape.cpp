#include "writers/xml_escape.hpp"

#include <cstring>

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

}  // namespace

std::string xml_escape(const char* text) {
  std::string escaped;
  append_xml_escaped(escaped, text);
  return escaped;
}

void append_xml_escaped(std::string& out, const char* text) {
  for (;;) {
    const size_t plain = std::strcspn(text, "\"&'<>");
    out.append(text, plain);
    text += plain;
    if (*text == '\0') {
      return;
    }
    out.append(entity_of(*text));
    ++text;
  }
}
