#include "check/type_check.hpp"

#include <string>

#include "check/written_schedule.hpp"
#include "platform/syntax/nearest_word.hpp"
#include "platform/syntax/text.hpp"

namespace {

std::vector<std::string_view> types_with_unit() {
  std::vector<std::string_view> types;
  for (const ScheduleType& known : schedule_types()) {
    if (known.unit_length > 0) {
      types.push_back(known.text);
    }
  }
  return types;
}

}  // namespace

void TypeCheck::take_type(Place place) {
  type_place_ = place;
  if (first_untyped_) {
    findings_.push_back(
        {FindingKind::late_type,
         place,
         "the type comes after sections whose times need it; these sections do not air",
         {{*first_untyped_, "the first of these sections"}}});
    first_untyped_.reset();
  }
}

void TypeCheck::check_unused_type(const SchedulePart& part) {
  const Place place = place_of(part);
  const ScheduleType* type = find_schedule_type(part.name);
  if (type == nullptr) {
    findings_.push_back(finding_for_unknown_type(part.name, place));
    is_misspelt_ = true;
  } else if (type->unit_length == 0) {
    findings_.push_back(
        {FindingKind::type_without_unit, place, "a schedule of this type cannot be printed"});
  } else {
    findings_.push_back({FindingKind::second_type,
                         place,
                         "the type is already " + schedule_.type + "; this line has no effect",
                         {{type_place(), "the type comes from here"}}});
  }
}

Finding TypeCheck::finding_for_unknown_type(std::string_view text, Place place) const {
  const std::vector<std::string_view> types = types_with_unit();
  const std::string_view word = strip_blanks(text.substr(0, text.find('#')));
  const std::optional<std::string_view> nearest = nearest_word(word, types);
  std::string message = "unknown type " + quoted("*" + std::string(text));
  if (word != text && nearest == word) {
    message += ": nothing else may stand on the line; write " + quoted("*" + std::string(word));
  } else if (nearest) {
    message += "; did you mean " + quoted("*" + std::string(*nearest)) + "?";
  } else {
    message += "; the types are daily, weekly, monthly, yearly and endless";
  }
  return {FindingKind::unknown_type, place, std::move(message)};
}

void TypeCheck::check_timed_section(Place place) {
  if (schedule_.type.empty() && !first_untyped_ && !is_misspelt_) {
    first_untyped_ = place;
  }
}

void TypeCheck::finish() {
  if (first_untyped_) {
    findings_.push_back(
        {FindingKind::no_type, *first_untyped_,
         "the times of this section need a type line before it; begin the file with "
         "'*weekly' or another type"});
  }
}
