#include "checks/line_checks.hpp"

#include <algorithm>
#include <string>
#include <utility>

#include "checks/line_fix.hpp"
#include "checks/named_files.hpp"
#include "platform/syntax/nearest_word.hpp"
#include "platform/syntax/text.hpp"

namespace {

std::vector<std::string_view> key_names(SectionKind kind) {
  std::vector<std::string_view> names;
  for (const SectionKey& key : section_keys(kind)) {
    names.push_back(key.name);
  }
  return names;
}

std::vector<LineFix> fix_for_name(const SchedulePart& part, std::string_view name,
                                  std::optional<std::string_view> meant) {
  return meant ? std::vector{line_with(part, name, *meant)} : std::vector<LineFix>();
}

void check_unknown_key(LineChecks& checks, const SchedulePart& part, std::string_view name) {
  const std::vector<std::string_view> names = key_names(part.section);
  const auto nearest = nearest_word(name, names);
  if (nearest) {
    checks.misspelt.emplace(*nearest, checks.found.findings.size());
  }
  const std::string lower = lower_case(name);
  if (find_section_key(part.section, lower) != nullptr) {
    checks.found.add(FindingKind::letter_case, place_of(part),
                     quoted(name) + " has no effect; write " + quoted(lower), {},
                     {line_with(part, name, lower)});
    return;
  }
  const char* owner = part.section == SectionKind::item ? "an item" : "a schedule block";
  checks.found.add(FindingKind::unknown_key, place_of(part),
                   "unknown key " + quoted(name) + " in " + owner + did_you_mean(name, names), {},
                   fix_for_name(part, name, nearest));
}

void check_unusable_line(LineChecks& checks, const SchedulePart& part) {
  const std::string_view text = part.text;
  const size_t equals = text.find('=');
  if (equals != std::string_view::npos) {
    const std::string_view name = strip_blanks(text.substr(0, equals));
    const SectionKey* key = find_section_key(part.section, name);
    if (key == nullptr) {
      check_unknown_key(checks, part, name);
    } else {
      checks.empty_values.emplace(key->name, place_of(part));
    }
    return;
  }
  const size_t colon = text.find(':');
  const std::string_view before = strip_blanks(text.substr(0, colon));
  const auto nearest = nearest_word(before, key_names(part.section));
  if (colon != std::string_view::npos && nearest) {
    checks.misspelt.emplace(*nearest, checks.found.findings.size());
    checks.found.add(FindingKind::colon, place_of(part),
                     "a ':' does not give " + quoted(before) + " a value; write '='", {},
                     {line_with(part, text.substr(colon, 1),
                                text.substr(colon + 1).starts_with(' ') ? " =" : " = ")});
  } else {
    checks.found.add(FindingKind::no_key, place_of(part),
                     quoted(text) + " does not set a key; write 'key = value'");
  }
}

/// The line with the path that was meant, and a comment behind it on a line before.
std::vector<LineFix> fix_of_path(const SchedulePart& part) {
  const auto complaint = complaint_about_path(part.value);
  if (!complaint || complaint->instead.empty()) {
    return {};
  }
  LineFix fix = line_with(part, part.value, complaint->instead);
  if (complaint->kind == FindingKind::comment_behind_value) {
    fix.text.insert(0, "  " + std::string(part.value.substr(complaint->offset)) + "\n");
  }
  return {fix};
}

/// "start == Mon 18:00": the second sign belongs to the value.
void check_second_equals(LineChecks& checks, const SchedulePart& part) {
  const size_t at = part.text.find('=') + 1;
  // A label may be decorated: "label === News ===".
  if (part.text.substr(at).starts_with('=') && !part.text.substr(at).starts_with("==")) {
    checks.found.add(FindingKind::double_equals,
                     {part.line, part.column + static_cast<int64_t>(at)},
                     "the second '=' is part of the value; write one", {},
                     {line_with(part, part.text.substr(at, 1), "")});
  }
}

void take_value(LineChecks& checks, const SchedulePart& part) {
  check_second_equals(checks, part);
  const WrittenValue value{part.key, part.value, value_place_of(part), part.column};
  if (part.key->key == ScheduleKey::item) {
    const size_t before = checks.found.findings.size();
    check_path(std::string(part.value), value.place, checks.with_media, checks.found);
    if (checks.found.findings.size() > before) {
      checks.found.findings.back().fix = fix_of_path(part);
    }
  }
  const auto earlier = std::ranges::find(checks.section.values, part.key, &WrittenValue::key);
  if (earlier == checks.section.values.end()) {
    checks.section.values.push_back(value);
    return;
  }
  checks.found.add(
      FindingKind::repeated_key, earlier->key_place(),
      "a later line sets " + quoted(part.key->name) + " again; this line has no effect",
      {{value.key_place(), "the later line is here"}});
  *earlier = value;
}

void check_needed_keys(LineChecks& checks, SectionKind kind) {
  const std::string lost =
      kind == SectionKind::item ? "the item is dropped: " : "the block is dropped: ";
  for (const SectionKey& key : section_keys(kind)) {
    if (!key.is_needed || checks.section.value_of(key.key) != nullptr) {
      continue;
    }
    const auto misspelt = checks.misspelt.find(key.name);
    if (misspelt != checks.misspelt.end()) {
      checks.found.findings[misspelt->second].text.insert(0, lost);
      continue;
    }
    const auto empty = checks.empty_values.find(key.name);
    if (empty != checks.empty_values.end()) {
      checks.found.add(FindingKind::missing, empty->second,
                       lost + "its " + quoted(key.name) + " has no value");
    } else {
      checks.found.add(FindingKind::missing, checks.section.place,
                       lost + "it has no " + quoted(key.name));
    }
  }
}

/// Of several sections with one start, the last one airs.
void keep_section(LineChecks& checks, SectionKind kind) {
  const bool is_item = kind == SectionKind::item;
  WrittenSections& sections = is_item ? checks.written.items : checks.written.blocks;
  const WrittenSection* earlier = sections.at(checks.section.start);
  if (earlier != nullptr && !checks.section.is_broken) {
    checks.found.add(FindingKind::same_start, earlier->place,
                     std::string(is_item ? "another item" : "another block") +
                         " starts at the same time; this one is dropped",
                     {{checks.section.place, "the other one is here"}});
  }
  sections.by_start[checks.section.start] = sections.all.size();
  sections.all.push_back(checks.section);  // a copy has no more room than it needs
}

}  // namespace

void begin_section(LineChecks& checks, const SchedulePart& part) {
  std::vector<WrittenValue> values = std::move(checks.section.values);  // with their memory
  values.clear();
  checks.section = {.place = place_of(part), .values = std::move(values)};
  checks.misspelt.clear();
  checks.empty_values.clear();
}

void check_section_line(LineChecks& checks, const SchedulePart& part) {
  if (part.kind == PartKind::unusable_line) {
    check_unusable_line(checks, part);
  } else if (part.key == nullptr) {
    check_unknown_key(checks, part, part.name);
  } else {
    take_value(checks, part);
  }
}

void end_section(LineChecks& checks, const SchedulePart& part, const PartEffect& effect) {
  WrittenSection& section = checks.section;
  section.start = effect.start;
  section.end = effect.end;
  section.is_broken = checks.is_section_broken;
  if (!section.is_broken) {
    if (section.value_of(ScheduleKey::start) != nullptr ||
        section.value_of(ScheduleKey::end) != nullptr) {
      check_timed_section(checks, section.place);
    }
    check_needed_keys(checks, part.section);
    check_values(checks, section);
  }
  if (effect.is_used) {
    keep_section(checks, part.section);
  }
}
