#include "writers/listing_text.hpp"

#include "platform/syntax/text.hpp"

namespace {

constexpr size_t longest_extension = 3;

}  // namespace

std::string csv_quote(std::string_view text) {
  if (text.empty()) {
    return {};
  }
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"') {
      quoted += '"';
    }
    quoted += c == '\n' ? ' ' : c;
  }
  quoted += '"';
  return quoted;
}

void trim_blanks(std::string& text) {
  text = std::string(strip_blanks(text));
}

std::optional<std::string> find_value(const MetadataMap& metadata, std::string_view name) {
  const auto found = metadata.find(name);
  return found != metadata.end() ? std::optional(found->second) : std::nullopt;
}

std::string title_of_file(std::string_view path) {
  std::string title(file_name_of(path));
  const size_t dot = title.rfind('.');
  if (dot != std::string::npos && title.size() - dot - 1 <= longest_extension) {
    title.resize(dot);
  }
  for (char& c : title) {
    if (c == '"' || c == '\'' || c == '\\' || c == '_') {
      c = ' ';
    }
  }
  return title;
}

std::string listing_title(const MetadataMap& metadata, std::string_view path) {
  std::string title = first_value(metadata, "program", "title");
  trim_blanks(title);
  return title.empty() ? title_of_file(path) : title;
}

bool is_yes(std::string_view value) {
  if (value.empty()) {
    return false;
  }
  const char first = to_upper(value.front());
  return first == '1' || first == 'T' || first == 'Y';
}
