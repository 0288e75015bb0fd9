#include "check/line_checks.hpp"

#include <array>
#include <string>
#include <vector>

#include "platform/syntax/nearest_word.hpp"
#include "platform/syntax/schedule_types.hpp"
#include "platform/syntax/text.hpp"

namespace {

constexpr std::array<std::string_view, 1> top_level_names = {global_default_name};

bool is_key_of_a_section(std::string_view name) {
  return find_section_key(SectionKind::item, name) != nullptr ||
         find_section_key(SectionKind::block, name) != nullptr;
}

}  // namespace

Finding finding_for_unused_name(const SchedulePart& part) {
  const Place place = place_of(part);
  const std::string word = lower_case(strip_blanks(part.text));
  if (find_schedule_type(word) != nullptr) {
    return {FindingKind::unknown_type, place,
            "a type needs a star before it; write " + quoted("*" + word)};
  }
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
    return {FindingKind::letter_case, place,
            quoted(name) + " has no effect; write " + quoted(global_default_name)};
  }
  return {FindingKind::unknown_name, place,
          "unknown name " + quoted(name.empty() ? part.text : name) +
              did_you_mean(name, top_level_names)};
}

std::string did_you_mean_section(std::string_view name) {
  std::vector<std::string_view> names = {block_section_name};
  for (const ScheduleType& type : schedule_types()) {
    if (!type.defaults_section.empty()) {
      names.push_back(type.defaults_section);
    }
  }
  // This stands for every name without a type; endless schedules need one.
  names.emplace_back("defaults, by date");
  return did_you_mean(name, names);
}
