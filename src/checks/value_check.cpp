#include "checks/line_checks.hpp"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>
#include <utility>

#include "checks/line_fix.hpp"
#include "checks/named_files.hpp"
#include "platform/syntax/nearest_word.hpp"

namespace {

constexpr std::array<std::string_view, 3> announces = {"block", "items", ""};

Place place_within(const WrittenValue& value, size_t offset) {
  return {value.place.line, value.place.column + static_cast<int64_t>(offset)};
}

void check_number(LineChecks& checks, const WrittenValue& value) {
  const std::string text(value.text);
  char* end = nullptr;
  std::strtod(text.c_str(), &end);
  if (end == text.c_str() || *end != '\0') {
    checks.found.add(FindingKind::bad_number, value.place,
                     "invalid number of seconds " + quoted(value.text));
  }
}

void check_announce(LineChecks& checks, const WrittenValue& value) {
  if (std::ranges::find(announces, value.text) == announces.end()) {
    std::vector<LineFix> fix;
    if (const auto meant = nearest_word(value.text, announces)) {
      fix.push_back(line_with(checks.written, value, *meant));
    }
    checks.found.add(FindingKind::unknown_announce, value.place,
                     "unknown value " + quoted(value.text) +
                         ": the block is announced as one item only if no programmes lie "
                         "inside" +
                         did_you_mean(value.text, announces),
                     {}, std::move(fix));
  }
}

/// A '#' before a number belongs to the label: "Part # 2".
void check_comment_in_label(LineChecks& checks, const WrittenValue& value) {
  const size_t mark = value.text.find(" # ");
  const bool is_number =
      mark != std::string_view::npos && value.text.find_first_of("0123456789", mark) == mark + 3;
  if (mark != std::string_view::npos && !is_number) {
    checks.found.add(FindingKind::comment_in_label, place_within(value, mark + 1),
                     "a comment after a label becomes part of the label; put the comment on a line "
                     "of its own");
  }
}

void check_markup(LineChecks& checks, const WrittenValue& value) {
  const size_t mark = value.text.find_first_of("&<");
  if (mark == std::string_view::npos) {
    return;
  }
  const std::string_view reference = reference_at(value.text.substr(mark));
  const MadeFormats& formats = checks.formats;
  const bool is_harmful =
      reference.empty() ? formats.xml : formats.html || formats.json || formats.xmltv;
  if (!is_harmful) {
    return;
  }
  checks.found.add(FindingKind::markup, place_within(value, mark),
                   reference.empty()
                       ? quoted(value.text.substr(mark, 1)) +
                             " goes into the XML document unescaped and makes it ill-formed"
                       : quoted(reference) +
                             " is one character in the XML document only; all other "
                             "documents show it as written");
}

void check_control_characters(LineChecks& checks, const WrittenValue& value) {
  const auto is_control = [](char c) { return static_cast<unsigned char>(c) < ' ' && c != '\t'; };
  const auto* found = std::ranges::find_if(value.text, is_control);
  if (found != value.text.end() && checks.formats.xml) {
    checks.found.add(FindingKind::control_character,
                     place_within(value, static_cast<size_t>(found - value.text.begin())),
                     "a control character makes the XML document ill-formed");
  }
}

}  // namespace

void check_values(LineChecks& checks, const WrittenSection& section) {
  for (const WrittenValue& value : section.values) {
    const ScheduleKey key = value.key->key;
    if (value.key->value_kind == ValueKind::time) {
      check_time(checks, section, value);
    } else if (value.key->value_kind == ValueKind::number) {
      check_number(checks, value);
    } else if (key == ScheduleKey::announce) {
      check_announce(checks, value);
    } else if (key == ScheduleKey::label) {
      check_comment_in_label(checks, value);
      check_markup(checks, value);
      check_control_characters(checks, value);
    } else if (key == ScheduleKey::block) {
      // The document shows the name of an announced block in place of a path, and escapes it.
      check_control_characters(checks, value);
    }
  }
}
