#include "platform/time/written_time.hpp"

#include "platform/syntax/text.hpp"

namespace {

/// "a", "am", "a.m." and the same with p. The result is 0 for the morning and 12 for the afternoon.
std::optional<int> take_half_of_day(TimeText& rest) {
  TimeText after = skip_blanks(rest);
  if (after.empty() || (after.front() != 'a' && after.front() != 'p')) {
    return std::nullopt;
  }
  const int hours = after.front() == 'a' ? 0 : 12;
  after.remove_prefix(1);
  if (!take_text(after, ".m.")) {
    take_text(after, "m");
  }
  rest = after;
  return hours;
}

/// Two digits up to 59.
std::optional<int> take_minute_or_second(TimeText& rest) {
  const std::optional<int> number = take_number(rest, 2, 2);
  return number && *number <= 59 ? number : std::nullopt;
}

/// Minutes, and perhaps seconds with a fraction. `is_whole_hour` says whether all of them are 0.
/// False when they are invalid.
bool take_minutes(TimeText& rest, ClockTime& clock, bool& is_whole_hour) {
  const std::optional<int> minute = take_minute_or_second(rest);
  if (!minute) {
    return false;
  }
  clock.minute = *minute;
  is_whole_hour = *minute == 0;
  if (!take_text(rest, ":")) {
    return true;
  }
  const std::optional<int> second = take_minute_or_second(rest);
  if (!second) {
    return false;
  }
  clock.second = *second;
  is_whole_hour = is_whole_hour && *second == 0;
  if (!take_text(rest, ".")) {
    return true;
  }
  const std::string_view fraction = rest.substr(0, count_digits(rest));
  clock.microseconds = microseconds_of(fraction);
  is_whole_hour = is_whole_hour && fraction.find_first_not_of('0') == std::string_view::npos;
  rest.remove_prefix(fraction.size());
  return !fraction.empty();
}

/// The hour of the day, 0 to 24. Nothing when the written hour is out of range.
std::optional<int> hour_of_day(int hour, std::optional<int> half_of_day, bool is_whole_hour) {
  if (half_of_day) {
    return hour >= 1 && hour <= 12 ? std::optional(hour % 12 + *half_of_day) : std::nullopt;
  }
  return hour < 24 || (hour == 24 && is_whole_hour) ? std::optional(hour) : std::nullopt;
}

}  // namespace

std::optional<ClockTime> read_clock(TimeText rest) {
  ClockTime clock;
  const std::optional<int> hour = take_number(rest, 1, 2);
  bool is_whole_hour = true;
  const bool has_minutes = hour && take_text(rest, ":");
  if (!hour || (has_minutes && !take_minutes(rest, clock, is_whole_hour))) {
    return std::nullopt;
  }
  const std::optional<int> half_of_day = take_half_of_day(rest);
  const std::optional<int> settled = hour_of_day(*hour, half_of_day, is_whole_hour);
  if (!rest.empty() || (!has_minutes && !half_of_day) || !settled) {
    return std::nullopt;
  }
  clock.hour = *settled;
  return clock;
}
