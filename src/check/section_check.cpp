#include "check/section_check.hpp"

#include <string>
#include <utility>

#include "check/path_check.hpp"
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

}  // namespace

void SectionCheck::begin_section(const SchedulePart& part) {
  section_ = {};
  section_.place = place_of(part);
  misspelt_.clear();
}

void SectionCheck::check_line(const SchedulePart& part) {
  if (part.kind == PartKind::unusable_line) {
    check_unusable_line(part);
  } else if (part.key == nullptr) {
    check_unknown_key(part, part.name);
  } else {
    take_value(part);
  }
}

void SectionCheck::check_unusable_line(const SchedulePart& part) {
  const std::string_view text = part.text;
  const size_t equals = text.find('=');
  if (equals != std::string_view::npos) {
    const std::string_view name = strip_blanks(text.substr(0, equals));
    if (find_section_key(part.section, name) == nullptr) {
      check_unknown_key(part, name);
    }
    return;
  }
  const size_t colon = text.find(':');
  const std::string_view before = strip_blanks(text.substr(0, colon));
  const auto nearest = nearest_word(before, key_names(part.section));
  if (colon != std::string_view::npos && nearest) {
    misspelt_.emplace(*nearest, findings_.size());
    findings_.push_back({FindingKind::colon, place_of(part),
                         "a ':' does not give " + quoted(before) + " a value; write '='"});
  } else {
    findings_.push_back({FindingKind::no_key, place_of(part),
                         quoted(text) + " does not set a key; write 'key = value'"});
  }
}

void SectionCheck::check_unknown_key(const SchedulePart& part, std::string_view name) {
  const std::vector<std::string_view> names = key_names(part.section);
  if (const auto nearest = nearest_word(name, names)) {
    misspelt_.emplace(*nearest, findings_.size());
  }
  const std::string lower = lower_case(name);
  if (find_section_key(part.section, lower) != nullptr) {
    findings_.push_back({FindingKind::letter_case, place_of(part),
                         quoted(name) + " has no effect; write " + quoted(lower)});
    return;
  }
  const char* owner = part.section == SectionKind::item ? "an item" : "a schedule block";
  findings_.push_back({FindingKind::unknown_key, place_of(part),
                       "unknown key " + quoted(name) + " in " + owner + did_you_mean(name, names)});
}

void SectionCheck::take_value(const SchedulePart& part) {
  const WrittenValue value{part.key, part.value, value_place_of(part), part.column};
  if (part.key->key == ScheduleKey::item) {
    check_path(std::string(part.value), value.place, with_media_, findings_);
  }
  const auto earlier = std::ranges::find(section_.values, part.key, &WrittenValue::key);
  if (earlier == section_.values.end()) {
    section_.values.push_back(value);
    return;
  }
  findings_.push_back(
      {FindingKind::repeated_key,
       earlier->key_place(),
       "a later line sets " + quoted(part.key->name) + " again; this line has no effect",
       {{value.key_place(), "the later line is here"}}});
  *earlier = value;
}

void SectionCheck::end_section(const SchedulePart& part, const PartEffect& effect, bool is_broken) {
  section_.start = effect.start;
  section_.end = effect.end;
  section_.is_broken = is_broken;
  if (!is_broken) {
    if (section_.value_of(ScheduleKey::start) != nullptr ||
        section_.value_of(ScheduleKey::end) != nullptr) {
      types_.check_timed_section(section_.place);
    }
    check_needed_keys(part.section);
    values_.check_section(section_);
  }
  if (effect.is_used) {
    keep_section(part.section, is_broken);
  }
}

void SectionCheck::check_needed_keys(SectionKind kind) {
  const std::string lost =
      kind == SectionKind::item ? "the item is dropped: " : "the block is dropped: ";
  for (const SectionKey& key : section_keys(kind)) {
    if (!key.is_needed || section_.value_of(key.key) != nullptr) {
      continue;
    }
    const auto misspelt = misspelt_.find(key.name);
    if (misspelt != misspelt_.end()) {
      findings_[misspelt->second].text.insert(0, lost);
    } else {
      findings_.push_back(
          {FindingKind::missing, section_.place, lost + "it has no " + quoted(key.name)});
    }
  }
}

void SectionCheck::keep_section(SectionKind kind, bool is_broken) {
  const bool is_item = kind == SectionKind::item;
  std::vector<WrittenSection>& sections = is_item ? written_.items : written_.blocks;
  auto& numbers = is_item ? written_.item_numbers : written_.block_numbers;
  const auto [number, is_new] = numbers.try_emplace(section_.start, sections.size());
  if (!is_new && !is_broken) {
    findings_.push_back({FindingKind::same_start,
                         sections[number->second].place,
                         std::string(is_item ? "another item" : "another block") +
                             " starts at the same time; this one is dropped",
                         {{section_.place, "the other one is here"}}});
  }
  number->second = sections.size();
  sections.push_back(std::move(section_));
}
