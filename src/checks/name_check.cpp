#include "checks/line_checks.hpp"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "checks/line_fix.hpp"
#include "checks/odd_characters.hpp"
#include "platform/syntax/nearest_word.hpp"
#include "platform/syntax/schedule_types.hpp"
#include "platform/syntax/text.hpp"

namespace {

constexpr std::array<std::string_view, 1> top_level_names = {global_default_name};
constexpr std::array<std::string_view, 6> words_for_items = {"item",  "items",   "programme",
                                                             "event", "program", "show"};

bool is_key_of_a_section(std::string_view name) {
  return find_section_key(SectionKind::item, name) != nullptr ||
         find_section_key(SectionKind::block, name) != nullptr;
}

/// The finding for a line that is a type, but has no star or has letters that only look right.
std::optional<Finding> finding_for_meant_type(const SchedulePart& part) {
  const Place place = place_of(part);
  const std::string word = lower_case(strip_blanks(part.text));
  if (find_schedule_type(word) != nullptr) {
    return Finding{FindingKind::unknown_type,
                   place,
                   "a type needs a star before it; write " + quoted("*" + word),
                   {},
                   {line_with(part, part.text, "*" + word)}};
  }
  const std::string plain = with_plain_characters(part.text);
  const std::string type(strip_blanks(plain));
  if (type != part.text && type.starts_with('*') && find_schedule_type(type.substr(1)) != nullptr) {
    return Finding{
        FindingKind::unknown_type,
        place,
        quoted(part.text) + " has letters or blanks that only look right; write " + quoted(type),
        {},
        {line_with(part, part.text, type)}};
  }
  return std::nullopt;
}

}  // namespace

Finding finding_for_unused_name(const SchedulePart& part) {
  if (auto finding = finding_for_meant_type(part)) {
    return *std::move(finding);
  }
  const Place place = place_of(part);
  const std::string_view name = strip_blanks(part.text.substr(0, part.text.find_first_of("=:")));
  if (is_key_of_a_section(name)) {
    return {FindingKind::unknown_name, place, quoted(name) + " stands outside all sections"};
  }
  if (name.starts_with(global_default_name)) {
    return {
        FindingKind::no_key, place,
        quoted(part.text) + " does not set a default; write " + quoted("global default = path")};
  }
  if (lower_case(name) == global_default_name) {
    return {FindingKind::letter_case,
            place,
            quoted(name) + " has no effect; write " + quoted(global_default_name),
            {},
            {line_with(part, name, global_default_name)}};
  }
  Finding finding{FindingKind::unknown_name, place,
                  "unknown name " + quoted(name.empty() ? part.text : name) +
                      did_you_mean(name, top_level_names)};
  if (nearest_word(name, top_level_names)) {
    finding.fix.push_back(line_with(part, name, global_default_name));
  }
  return finding;
}

bool is_line_of_table(std::string_view text) {
  const auto has_columns = [&](char separator) { return std::ranges::count(text, separator) > 1; };
  return text.find('=') == std::string_view::npos &&
         (has_columns(',') || has_columns(';') || has_columns('\t'));
}

Finding finding_for_table(Place place) {
  return {FindingKind::unknown_name, place,
          "this looks like a table; write for each programme a section of lines: '{', 'item = "
          "path', 'start = time', 'end = time' and '}'"};
}

std::optional<std::string> meant_section(std::string_view name) {
  std::string lower = lower_case(strip_blanks(with_plain_characters(name)));
  if (lower.ends_with(':')) {
    lower.pop_back();
  }
  if (lower.empty() || std::ranges::find(words_for_items, lower) != words_for_items.end()) {
    return "";
  }
  if (lower == "block") {
    return std::string(block_section_name);
  }
  std::vector<std::string_view> names = {block_section_name};
  for (const ScheduleType& type : schedule_types()) {
    if (!type.defaults_section.empty()) {
      names.push_back(type.defaults_section);
    }
  }
  // This stands for every name without a type; endless schedules need one.
  names.emplace_back("defaults, by date");
  const std::optional<std::string_view> nearest = nearest_word(name, names);
  return nearest ? std::optional(std::string(*nearest)) : std::nullopt;
}

std::string did_you_mean_section(std::string_view name) {
  const std::optional<std::string> meant = meant_section(name);
  if (!meant) {
    return "";
  }
  return meant->empty() ? "; the section of an item has no name, write '{'"
                        : "; did you mean '" + *meant + "'?";
}

Finding finding_for_unknown_section(const SchedulePart& part) {
  Finding finding{
      FindingKind::unknown_section, place_of(part),
      "unknown section " + quoted(part.name) + "; it is skipped" + did_you_mean_section(part.name)};
  if (const std::optional<std::string> meant = meant_section(part.name)) {
    finding.fix.push_back(line_with(part, part.text, meant->empty() ? "{" : *meant + " {"));
  }
  return finding;
}

void take_brace_of_line_before(Finding& finding, std::string_view name, const SchedulePart& brace) {
  const int64_t line = finding.place.line;
  const std::optional<std::string> meant = meant_section(name);
  if (meant && meant->empty()) {
    finding.text = "the section of an item has no name; remove this line";
    finding.fix = {{line, ""}};
    return;
  }
  const std::string opened = std::string(name) + " {";
  finding.text =
      "the '{' of a section with a name stands on the same line; write " + quoted(opened);
  finding.fix = {{line, opened}, {brace.line, ""}};
}
