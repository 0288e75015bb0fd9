#include "checks/time_parts.hpp"

#include "checks/time_advice.hpp"
#include "platform/syntax/text.hpp"

std::optional<TimeParts> parts_of_time(std::string_view text) {
  TimeParts parts;
  const std::string lower = lower_case(strip_blanks(text));
  if (const auto clock = read_clock(lower)) {
    parts.clock = *clock;
    parts.clock_text = lower;
    return parts;
  }
  TimeText rest = lower;
  const auto date = take_date(rest);
  if (is_bare_number(lower) || !date || !in_range(*date)) {
    return std::nullopt;
  }
  parts.date = *date;
  parts.date_text = lower.substr(0, lower.size() - rest.size());
  if (rest.empty()) {
    return parts;
  }
  if (!take_separators(rest) && !(date->is_iso && take_text(rest, "t"))) {
    return std::nullopt;
  }
  const auto clock = read_clock(rest);
  if (!clock) {
    return std::nullopt;
  }
  parts.clock = *clock;
  parts.clock_text = rest;
  return parts;
}
