#include "schedule/default_slot.hpp"

#include <algorithm>

#include "platform/schedule_types.hpp"
#include "platform/text.hpp"
#include "platform/written_date.hpp"

namespace {

/// A number larger than any range, so that no count of digits can overflow.
constexpr int out_of_range = 1000000;

/// Takes `letters` and the decimal number behind them off the key's front.
std::optional<int> take_number(std::string_view& key, std::string_view letters) {
  if (!key.starts_with(letters)) {
    return std::nullopt;
  }
  std::string_view rest = key.substr(letters.size());
  if (rest.empty() || !is_digit(rest.front())) {
    return std::nullopt;
  }
  int number = 0;
  while (!rest.empty() && is_digit(rest.front())) {
    number = std::min(number * 10 + (rest.front() - '0'), out_of_range);
    rest.remove_prefix(1);
  }
  key = skip_blanks(rest);
  return number;
}

std::optional<int> slot_in(std::optional<int> slot, int first, int last) {
  return slot && *slot >= first && *slot <= last ? slot : std::nullopt;
}

/// A day that is counted from 1. The slots of the longest unit are accepted in every type.
std::optional<int> counted_slot(std::string_view key, std::string_view letters) {
  const std::optional<int> number = slot_in(take_number(key, letters), 1, default_slots);
  return number && key.empty() ? std::optional(*number - 1) : std::nullopt;
}

std::optional<int> day_of_year_slot(std::string_view key) {
  const std::optional<int> month = slot_in(take_number(key, "m"), 1, 12);
  const std::optional<int> day = slot_in(take_number(key, "d"), 1, days_per_month);
  if (!month || !day || !key.empty()) {
    return std::nullopt;
  }
  return (*month - 1) * days_per_month + (*day - 1);
}

std::optional<int> dated_slot(std::string_view key) {
  const std::optional<int> year =
      slot_in(take_number(key, "y"), first_schedule_year, first_schedule_year + schedule_years - 1);
  const std::optional<int> day_of_year = day_of_year_slot(key);
  if (!year || !day_of_year) {
    return std::nullopt;
  }
  return (*year - first_schedule_year) * days_per_year + *day_of_year;
}

}  // namespace

std::optional<int> default_slot_of_key(std::string_view type, std::string_view key) {
  if (type == "daily") {
    return key == "day" ? std::optional(0) : std::nullopt;
  }
  if (type == "weekly") {
    return find_weekday(key);
  }
  if (type == "monthly") {
    return counted_slot(key, "dom");
  }
  if (type == "interval") {
    return counted_slot(key, "doi");
  }
  if (type == "yearly") {
    return day_of_year_slot(key);
  }
  if (type == "endless") {
    return dated_slot(key);
  }
  return std::nullopt;
}
