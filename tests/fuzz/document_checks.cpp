#include "fuzz/document_checks.hpp"

#include <libxml/parser.h>

#include <algorithm>
#include <boost/json.hpp>
#include <string_view>

#include "fuzz/fuzz_target.hpp"
#include "metadata/item_metadata.hpp"
#include "schedule/run_options.hpp"

namespace {

/// Calls visit(entry, group) for every entry of metadata that the items show.
template <typename Visit>
void for_each_shown_entry(const Schedule& schedule, Visit visit) {
  for (const auto& [start, item] : schedule.schedule) {
    const OpenedMetadata opened = open_item_metadata(item);
    for_each_entry(opened.set, [&](const metadata_v4_entry& entry) {
      const char* group = group_name(opened.set, entry);
      visit(entry, group != nullptr ? group : "");
    });
  }
}

bool has_any(std::string_view text, std::string_view bytes) {
  return text.find_first_of(bytes) != std::string_view::npos;
}

/// Labels, and names and groups of entries, go out unescaped.
bool can_break_xml(const Schedule& schedule) {
  bool can_break = false;
  for (const auto& [start, item] : schedule.schedule) {
    can_break =
        can_break || has_any(item.label, "<&") || item.label.find("]]>") != std::string::npos;
  }
  for_each_shown_entry(schedule, [&](const metadata_v4_entry& entry, std::string_view group) {
    can_break = can_break || has_any(entry.name, "<&\"") || has_any(group, "<&\"");
  });
  return can_break;
}

bool has_control_bytes(std::string_view text) {
  return std::ranges::any_of(text, [](char c) {
    return static_cast<unsigned char>(c) < ' ' && c != '\n' && c != '\t' && c != '\r';
  });
}

/// Strictly (RFC 3629), which libxml2's own check is not.
bool is_utf8(std::string_view text) {
  boost::json::error_code error;
  boost::json::parse(boost::json::serialize(boost::json::string(text)), error);
  return !error;
}

/// Whether XML 1.0 has a place for every character of a text.
bool are_xml_characters(std::string_view text) {
  return !has_control_bytes(text) && text.find("\xEF\xBF\xBE") == std::string_view::npos &&
         text.find("\xEF\xBF\xBF") == std::string_view::npos && is_utf8(text);
}

void check_xml(const std::string& document, const Schedule& schedule) {
  // No escape brings the others into XML 1.0; they are copied.
  if (!are_xml_characters(document)) {
    return;
  }
  xmlDoc* parsed =
      xmlReadMemory(document.data(), static_cast<int>(document.size()), nullptr, nullptr,
                    XML_PARSE_HUGE | XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING);
  require(parsed != nullptr || can_break_xml(schedule), "the XML document is well-formed");
  xmlFreeDoc(parsed);
}

void check_json(const std::string& document) {
  boost::json::parse_options options;
  options.allow_invalid_utf8 = true;
  boost::json::error_code error;
  const boost::json::value value = boost::json::parse(document, error, {}, options);
  require(!error && value.is_object(), "the JSON document is an object");
}

void check_page(std::string_view document) {
  require(document.starts_with("<!DOCTYPE"), "the page begins with its document type");
  require(document.ends_with("</html>\n"), "the page is closed");
  size_t scripts = 0;
  for (size_t at = document.find("<script"); at != std::string_view::npos;
       at = document.find("<script", at + 1)) {
    ++scripts;
  }
  require(scripts == 1, "the page holds its own script and no other");
}

/// Whether every row of a listing (RFC 4180) has as many fields as its header.
bool has_even_columns(std::string_view listing) {
  const std::string_view header = listing.substr(0, listing.find('\n'));
  const auto columns = static_cast<size_t>(std::ranges::count(header, ',')) + 1;
  size_t fields = 1;
  bool quoted = false;
  for (const char c : listing) {
    if (c == '"') {
      quoted = !quoted;
    } else if (!quoted && c == ',') {
      ++fields;
    } else if (!quoted && c == '\n') {
      if (fields != columns) {
        return false;
      }
      fields = 1;
    }
  }
  return !quoted;
}

/// The station's name goes out as it is, and in one of the listings a few columns more.
bool can_break_listing(const Schedule& schedule) {
  constexpr std::string_view breaking = "\",\r\n";
  bool can_break = has_any(run_options.station_id, breaking);
  if (run_options.format == OutputFormat::rovi) {
    for_each_shown_entry(schedule, [&](const metadata_v4_entry& entry, std::string_view) {
      can_break = can_break || has_any(entry.value, breaking);
    });
  }
  return can_break;
}

}  // namespace

void check_document(const std::string& document, const Schedule& schedule) {
  switch (run_options.format) {
    case OutputFormat::xml:
      check_xml(document, schedule);
      break;
    case OutputFormat::html:
      check_page(document);
      break;
    case OutputFormat::json:
      check_json(document);
      break;
    case OutputFormat::rovi:
    case OutputFormat::gracenote:
      require(has_even_columns(document) || can_break_listing(schedule),
              "every row has as many fields as the header");
      break;
  }
}
