#include "check/value_check.hpp"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>

#include "check/time_advice.hpp"
#include "platform/syntax/nearest_word.hpp"

namespace {

constexpr std::array<std::string_view, 3> announces = {"block", "items", ""};
constexpr std::array<std::string_view, 5> references = {"&amp;", "&lt;", "&gt;", "&quot;",
                                                        "&apos;"};

Place place_within(const WrittenValue& value, size_t offset) {
  return {value.place.line, value.place.column + static_cast<int64_t>(offset)};
}

}  // namespace

std::string_view reference_at(std::string_view text) {
  const auto begins = [&](std::string_view reference) { return text.starts_with(reference); };
  const auto* found = std::ranges::find_if(references, begins);
  return found == references.end() ? std::string_view() : *found;
}

void ValueCheck::check_section(const WrittenSection& section) {
  for (const WrittenValue& value : section.values) {
    const ScheduleKey key = value.key->key;
    if (value.key->value_kind == ValueKind::time) {
      check_time(value);
    } else if (value.key->value_kind == ValueKind::number) {
      check_number(value);
    } else if (key == ScheduleKey::announce) {
      check_announce(value);
    } else if (key == ScheduleKey::label) {
      check_markup(value);
      check_control_characters(value);
    } else if (key == ScheduleKey::block) {
      // The document shows the name of an announced block in place of a path, and escapes it.
      check_control_characters(value);
    }
  }
}

void ValueCheck::check_time(const WrittenValue& value) {
  const ScheduleType* known = find_schedule_type(schedule_.type);
  const ScheduleType& type = known != nullptr ? *known : *find_schedule_type(default_schedule_type);
  if (is_bare_number(value.text)) {
    bare_numbers_.push_back(value);
    if (std::strtoull(std::string(value.text).c_str(), nullptr, 10) > type.unit_length) {
      findings_.push_back({FindingKind::out_of_range, value.place,
                           quoted(value.text) + " is out of range: the schedule has " +
                               std::to_string(type.unit_length) + " seconds"});
    }
  } else {
    has_clocks_ = true;
  }
  for (const TimeAdvice& advice : advise_on_time(value.text, type)) {
    findings_.push_back({advice.kind, place_within(value, advice.offset), advice.text});
  }
}

void ValueCheck::check_number(const WrittenValue& value) {
  const std::string text(value.text);
  char* end = nullptr;
  std::strtod(text.c_str(), &end);
  if (end == text.c_str() || *end != '\0') {
    findings_.push_back(
        {FindingKind::bad_number, value.place, "invalid number of seconds " + quoted(value.text)});
  }
}

void ValueCheck::check_announce(const WrittenValue& value) {
  if (std::ranges::find(announces, value.text) == announces.end()) {
    findings_.push_back({FindingKind::unknown_announce, value.place,
                         "unknown value " + quoted(value.text) +
                             ": the block is announced as one item only if no programmes lie "
                             "inside" +
                             did_you_mean(value.text, announces)});
  }
}

void ValueCheck::check_markup(const WrittenValue& value) {
  const size_t mark = value.text.find_first_of("&<");
  if (mark == std::string_view::npos) {
    return;
  }
  const std::string_view reference = reference_at(value.text.substr(mark));
  findings_.push_back({FindingKind::markup, place_within(value, mark),
                       reference.empty()
                           ? quoted(value.text.substr(mark, 1)) +
                                 " goes into the XML document unescaped and makes it ill-formed"
                           : quoted(reference) +
                                 " is one character in the XML document only; all other "
                                 "documents show it as written"});
}

void ValueCheck::check_control_characters(const WrittenValue& value) {
  const auto is_control = [](char c) { return static_cast<unsigned char>(c) < ' ' && c != '\t'; };
  const auto* found = std::ranges::find_if(value.text, is_control);
  if (found != value.text.end()) {
    findings_.push_back({FindingKind::control_character,
                         place_within(value, static_cast<size_t>(found - value.text.begin())),
                         "a control character makes the XML document ill-formed"});
  }
}

/// A plain number means schedule seconds, "12.48" as well as "3605.20". It was probably meant as a
/// clock if the file writes clocks elsewhere, or if every plain number could be a clock; "1800"
/// only in the first case.
void ValueCheck::finish() {
  const bool are_seconds =
      !has_clocks_ && std::ranges::any_of(bare_numbers_, [](const WrittenValue& value) {
        return value.text != "0" && !looks_like_clock(value.text, false);
      });
  if (are_seconds) {
    return;
  }
  for (const WrittenValue& value : bare_numbers_) {
    if (looks_like_clock(value.text, has_clocks_)) {
      findings_.push_back({FindingKind::bare_number, value.place,
                           quoted(value.text) +
                               " is read as seconds from the beginning of the unit; write " +
                               quoted(clock_of(value.text))});
    }
  }
}
