#include <string>
#include <string_view>

#include "check/explain.hpp"
#include "platform/syntax/json_text.hpp"
#include "platform/syntax/text.hpp"

std::string json_of_story(const std::string& file, std::string_view story) {
  std::string out = "{\"file\": ";
  append_json_string(out, file);
  out += ", \"moment\": ";
  append_json_string(out, take_line(story));
  out += ", \"story\": [";
  for (const char* separator = ""; !story.empty(); separator = ", ") {
    const std::string_view line = strip_blanks(take_line(story));
    const size_t colon = line.find(": ");
    out += separator;
    out += "{\"name\": ";
    append_json_string(out, line.substr(0, colon));
    out += ", \"text\": ";
    append_json_string(out, line.substr(colon + 2));
    out += '}';
  }
  return out + "]}";
}
