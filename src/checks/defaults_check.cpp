#include "checks/line_checks.hpp"

#include <string>

#include "checks/line_fix.hpp"
#include "checks/named_files.hpp"
#include "checks/position_text.hpp"
#include "platform/syntax/text.hpp"
#include "schedule/default_slot.hpp"

namespace {

/// The finding for a line that does not split into a name and a value.
Finding finding_for_unusable_line(const SchedulePart& part) {
  const bool has_colon = part.text.find('=') == std::string_view::npos &&
                         part.text.find(':') != std::string_view::npos;
  if (has_colon) {
    const std::string_view colon = part.text.substr(part.text.find(':'), 1);
    return {FindingKind::colon,
            place_of(part),
            "a ':' does not give a value; write '='",
            {},
            {line_with(part, colon, " =")}};
  }
  return {FindingKind::no_key, place_of(part),
          quoted(part.text) + " does not set the default of a day; write 'day = path'"};
}

/// Another type that has the name as a key, or null.
const ScheduleType* other_type_with_key(std::string_view name, std::string_view own_type) {
  for (const ScheduleType& type : schedule_types()) {
    if (type.text != own_type && default_slot_of_key(type.text, name)) {
      return &type;
    }
  }
  return nullptr;
}

void take_path(LineChecks& checks, const SchedulePart& part) {
  const std::string path(part.value);
  check_path(path, value_place_of(part), checks.with_media, checks.found);
  checks.written.default_paths.try_emplace(path, value_place_of(part));
}

void take_default(LineChecks& checks, const SchedulePart& part, size_t slot) {
  const Place place = place_of(part);
  const ScheduleType* type = find_schedule_type(checks.written.schedule.type);
  const uint64_t days = type->unit_length / seconds_per_day;
  if (days > 0 && slot >= days) {
    checks.found.add(
        FindingKind::default_range, place,
        "the schedule has " + std::to_string(days) + " days; this default has no effect");
  }
  const auto [known, is_new] = checks.defaults.try_emplace(slot, place);
  if (!is_new) {
    checks.found.add(FindingKind::repeated_default, known->second,
                     "a later line gives the day another default; this line has no effect",
                     {{place, "the later line is here"}});
    known->second = place;
  }
  take_path(checks, part);
}

}  // namespace

void take_global_default(LineChecks& checks, const SchedulePart& part) {
  if (checks.global_default) {
    checks.found.add(FindingKind::repeated_key, *checks.global_default,
                     "a later line sets the global default again; this line has no effect",
                     {{place_of(part), "the later line is here"}});
  }
  checks.global_default = place_of(part);
  take_path(checks, part);
}

void begin_defaults(LineChecks& checks, const SchedulePart& part, const PartEffect& effect) {
  const Place place = place_of(part);
  const ScheduleType* type = find_schedule_type_of_section(part.name);
  const std::string& schedule_type = checks.written.schedule.type;
  checks.are_defaults_foreign = false;
  if (effect.is_used) {
    take_type(checks, place);
    if (type->unit_length == 0) {
      checks.found.add(FindingKind::type_without_unit, place,
                       "this gives the schedule a type that cannot be printed");
    }
  } else if (schedule_type.empty()) {
    checks.are_defaults_foreign = true;
    checks.found.add(
        FindingKind::default_section, place,
        quoted(part.name) +
            " does not name a type, and no type comes before it: its lines have no effect" +
            did_you_mean_section(part.name));
  } else if (type != nullptr && type->text != schedule_type) {
    checks.are_defaults_foreign = true;
    checks.found.add(FindingKind::default_section, place,
                     quoted(part.name) + " in " + a_schedule_of(schedule_type) +
                         ": its keys are read as those of " + a_schedule_of(schedule_type),
                     {{type_place(checks), "the type comes from here"}});
  }
}

void check_defaults_line(LineChecks& checks, const SchedulePart& part, const PartEffect& effect) {
  if (effect.is_used) {
    take_default(checks, part, static_cast<size_t>(effect.default_slot));
  } else if (!checks.are_defaults_foreign) {
    checks.found.findings.push_back(finding_for_unused_default(part, checks.written.schedule.type));
  }
}

void finish_defaults_check(LineChecks& checks) {
  const ScheduleType* type = find_schedule_type(checks.written.schedule.type);
  if (type == nullptr || checks.global_default || checks.defaults.empty() ||
      type->day_name != DayName::weekday) {
    return;
  }
  std::string days;
  for (uint64_t day = 0; day < 7; ++day) {
    if (!checks.defaults.contains(day)) {
      const std::string name = written_position(day * seconds_per_day, *type).substr(0, 3);
      days += days.empty() ? name : ", " + name;
    }
  }
  if (!days.empty()) {
    checks.found.add(
        FindingKind::no_default, checks.defaults.begin()->second,
        "no default for " + days + ": other days have one, and there is no global default");
  }
}

Finding finding_for_unused_default(const SchedulePart& part, std::string_view schedule_type) {
  if (part.kind == PartKind::unusable_line) {
    return finding_for_unusable_line(part);
  }
  const Place place = place_of(part);
  if (!part.clarifier.empty()) {
    return {FindingKind::default_key, place,
            "a line with " + quoted("[" + std::string(part.clarifier) + "]") + " has no effect"};
  }
  const std::string lower = lower_case(part.name);
  if (default_slot_of_key(schedule_type, lower)) {
    return {FindingKind::letter_case,
            place,
            quoted(part.name) + " has no effect; write " + quoted(lower),
            {},
            {line_with(part, part.name, lower)}};
  }
  if (const ScheduleType* type = other_type_with_key(part.name, schedule_type)) {
    return {FindingKind::default_key, place,
            quoted(part.name) + " is a key of " + a_schedule_of(type->text) + ", not of " +
                a_schedule_of(schedule_type)};
  }
  const bool has_number = part.name.find_first_of("0123456789") != std::string_view::npos;
  if (has_number) {
    return {FindingKind::default_range, place,
            a_schedule_of(schedule_type) + " has no day " + quoted(part.name)};
  }
  return {
      FindingKind::default_key, place,
      "unknown key " + quoted(part.name) + " in the defaults of " + a_schedule_of(schedule_type)};
}
