#include "schedule/default_slot.hpp"

#include <cstdlib>
#include <string>

#include "platform/syntax/schedule_types.hpp"
#include "platform/syntax/text.hpp"
#include "platform/time/written_time.hpp"

namespace {

/// Removes `letters` and the decimal number after them from the front of the key. As in strtol,
/// blanks and a sign may come before the digits. Without digits the number is 0.
std::optional<long> take_number(const char*& key, std::string_view letters) {
  if (!std::string_view(key).starts_with(letters)) {
    return std::nullopt;
  }
  char* behind = nullptr;
  const long number = std::strtol(key + letters.size(), &behind, 10);
  key = behind;
  return number;
}

std::optional<int> slot_in(std::optional<long> number, int first, int last) {
  return number && *number >= first && *number <= last ? std::optional(static_cast<int>(*number))
                                                       : std::nullopt;
}

/// A day that is counted from 1. A digit must follow the letters directly. Every type accepts the
/// slots of the longest unit.
std::optional<int> counted_slot(const char* key, std::string_view letters) {
  const char* rest = key;
  const std::optional<int> number = slot_in(take_number(rest, letters), 1, default_slots);
  return number && is_digit(key[letters.size()]) ? std::optional(*number - 1) : std::nullopt;
}

std::optional<int> day_of_year_slot(const char* key) {
  const std::optional<int> month = slot_in(take_number(key, "m"), 1, 12);
  const std::optional<int> day = slot_in(take_number(key, "d"), 1, days_per_month);
  if (!month || !day) {
    return std::nullopt;
  }
  return (*month - 1) * days_per_month + (*day - 1);
}

std::optional<int> dated_slot(const char* key) {
  const std::optional<int> year =
      slot_in(take_number(key, "y"), first_schedule_year, first_schedule_year + schedule_years - 1);
  const std::optional<int> day_of_year = day_of_year_slot(key);
  if (!year || !day_of_year) {
    return std::nullopt;
  }
  return (*year - first_schedule_year) * days_per_year + *day_of_year;
}

}  // namespace

std::optional<int> default_slot_of_key(std::string_view type_text, std::string_view name) {
  const std::string key(name);
  const ScheduleType* type = find_schedule_type(type_text);
  switch (type != nullptr ? type->day_name : DayName::none) {
    case DayName::none:
      break;
    case DayName::only_day:
      return key == "day" ? std::optional(0) : std::nullopt;
    case DayName::weekday:
      return find_weekday(key);
    case DayName::day_of_month:
      return counted_slot(key.c_str(), "dom");
    case DayName::day_of_year:
      return day_of_year_slot(key.c_str());
    case DayName::date:
      return dated_slot(key.c_str());
    case DayName::number:
      return counted_slot(key.c_str(), "doi");
  }
  return std::nullopt;
}
