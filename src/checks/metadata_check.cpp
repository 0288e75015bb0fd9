#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "checks/named_files.hpp"
#include "platform/syntax/utf_8.hpp"

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

/// The first entry with each problem: its name, or its text if it has no name.
struct FaultyEntries {
  std::optional<std::string> with_markup = {};
  std::optional<std::string> with_control_character = {};
  std::optional<std::string> without_utf_8 = {};
};

void check_entry(const metadata_v4_entry& entry, const char* group, FaultyEntries& faulty) {
  for (const char* name : {group, entry.name}) {
    if (!faulty.with_markup && name != nullptr && has_markup(name)) {
      faulty.with_markup = name;
    }
  }
  for (const char* text : {group, entry.name, static_cast<const char*>(entry.value)}) {
    if (text == nullptr) {
      continue;
    }
    const char* where = text == group || entry.name == nullptr ? text : entry.name;
    if (!faulty.with_control_character && has_control_character(text)) {
      faulty.with_control_character = where;
    }
    if (!faulty.without_utf_8 && find_no_utf_8(text) != std::string_view::npos) {
      faulty.without_utf_8 = where;
    }
  }
}

}  // namespace

std::string_view reference_at(std::string_view text) {
  const auto begins = [&](std::string_view reference) { return text.starts_with(reference); };
  const auto* found = std::ranges::find_if(references, begins);
  return found == references.end() ? std::string_view() : *found;
}

void check_metadata(const std::string& path, const MetadataSet& set, Place place,
                    const MadeFormats& formats, FileFindings& found) {
  FaultyEntries faulty;
  for_each_entry(set, [&](const metadata_v4_entry& entry) {
    check_entry(entry, group_name(set, entry), faulty);
  });
  const std::string of_file = " in the metadata of " + quoted(path);
  if (faulty.with_markup && formats.xml) {
    found.add(FindingKind::markup, place,
              "the name " + quoted(*faulty.with_markup) + of_file +
                  " goes into the XML document unescaped and makes it ill-formed");
  }
  if (faulty.with_control_character && formats.xml) {
    found.add(FindingKind::control_character, place,
              "a control character at " + quoted(*faulty.with_control_character) + of_file +
                  " makes the XML document ill-formed");
  }
  if (faulty.without_utf_8 && (formats.xml || formats.json)) {
    found.add(FindingKind::not_utf_8, place,
              "not valid UTF-8 at " + quoted(*faulty.without_utf_8) + of_file +
                  "; the documents show these bytes unchanged");
  }
}
