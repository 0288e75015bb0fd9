#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "check/named_files.hpp"

namespace {

constexpr std::array<std::string_view, 5> references = {"&amp;", "&lt;", "&gt;", "&quot;",
                                                        "&apos;"};

/// Whether the name holds a character that ends an attribute's value or begins an element or a
/// broken reference.
bool has_markup(std::string_view name) {
  const auto is_markup = [&](const char& c) {
    const auto rest = name.substr(static_cast<size_t>(&c - name.data()));
    return c == '"' || c == '<' || (c == '&' && reference_at(rest).empty());
  };
  return std::ranges::any_of(name, is_markup);
}

/// Whether the text holds a character that XML documents may not hold, even escaped.
bool has_control_character(std::string_view text) {
  return std::ranges::any_of(text, [](char c) {
    return static_cast<unsigned char>(c) < ' ' && c != '\t' && c != '\n' && c != '\r';
  });
}

}  // namespace

std::string_view reference_at(std::string_view text) {
  const auto begins = [&](std::string_view reference) { return text.starts_with(reference); };
  const auto* found = std::ranges::find_if(references, begins);
  return found == references.end() ? std::string_view() : *found;
}

void check_metadata(const std::string& path, const MetadataSet& set, Place place,
                    FileFindings& found) {
  std::optional<std::string> with_markup;
  std::optional<std::string> with_control_character;
  for_each_entry(set, [&](const metadata_v4_entry& entry) {
    const char* group = group_name(set, entry);
    for (const char* name : {group, entry.name}) {
      if (!with_markup && name != nullptr && has_markup(name)) {
        with_markup = name;
      }
    }
    for (const char* text : {group, entry.name, entry.value}) {
      if (!with_control_character && text != nullptr && has_control_character(text)) {
        with_control_character = text == group || entry.name == nullptr ? text : entry.name;
      }
    }
  });
  if (with_markup) {
    found.add(FindingKind::markup, place,
              "the name " + quoted(*with_markup) + " in the metadata of " + quoted(path) +
                  " goes into the XML document unescaped and makes it ill-formed");
  }
  if (with_control_character) {
    found.add(FindingKind::control_character, place,
              "a control character at " + quoted(*with_control_character) + " in the metadata of " +
                  quoted(path) + " makes the XML document ill-formed");
  }
}
