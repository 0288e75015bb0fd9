#include "checks/line_checks.hpp"

#include <string>

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

Finding finding_for_unknown_type(std::string_view text, Place place) {
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
  std::vector<LineFix> fix;
  if (nearest) {
    fix.push_back({place.line, "*" + std::string(*nearest)});
  }
  return {FindingKind::unknown_type, place, std::move(message), {}, std::move(fix)};
}

}  // namespace

Place type_place(const LineChecks& checks) {
  return checks.type_place.value_or(Place{});
}

void take_type(LineChecks& checks, Place place) {
  checks.type_place = place;
  if (checks.first_untyped) {
    checks.found.add(FindingKind::late_type, place,
                     "the type comes after sections whose times need it; these sections do not air",
                     {{*checks.first_untyped, "the first of these sections"}});
    checks.first_untyped.reset();
  }
}

void check_unused_type(LineChecks& checks, const SchedulePart& part) {
  const Place place = place_of(part);
  const ScheduleType* type = find_schedule_type(part.name);
  if (type == nullptr) {
    checks.found.findings.push_back(finding_for_unknown_type(part.name, place));
    checks.is_type_misspelt = true;
  } else if (type->unit_length == 0) {
    checks.found.add(FindingKind::type_without_unit, place,
                     "a schedule of this type cannot be printed");
  } else {
    checks.found.add(
        FindingKind::second_type, place,
        "the type is already " + checks.written.schedule.type + "; this line has no effect",
        {{type_place(checks), "the type comes from here"}});
  }
}

void check_timed_section(LineChecks& checks, Place place) {
  if (checks.written.schedule.type.empty() && !checks.first_untyped && !checks.is_type_misspelt) {
    checks.first_untyped = place;
  }
}

void finish_type_check(LineChecks& checks) {
  if (checks.first_untyped) {
    checks.found.add(FindingKind::no_type, *checks.first_untyped,
                     "the times of this section need a type line before it; begin the file with "
                     "'*weekly' or another type");
  }
}
