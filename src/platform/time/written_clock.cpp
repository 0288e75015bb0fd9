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

}  // namespace

std::optional<ClockTime> read_clock(TimeText rest) {
  ClockTime clock;
  const std::optional<int> hour = take_number(rest, 1, 2);
  if (!hour) {
    return std::nullopt;
  }
  bool is_whole_hour = true;
  const bool has_minutes = take_text(rest, ":");
  if (has_minutes) {
    const std::optional<int> minute = take_number(rest, 2, 2);
    if (!minute || *minute > 59) {
      return std::nullopt;
    }
    clock.minute = *minute;
    if (take_text(rest, ":")) {
      const std::optional<int> second = take_number(rest, 2, 2);
      if (!second || *second > 59) {
        return std::nullopt;
      }
      clock.second = *second;
      if (take_text(rest, ".")) {
        const std::string_view fraction = rest.substr(0, count_digits(rest));
        if (fraction.empty()) {
          return std::nullopt;
        }
        clock.microseconds = microseconds_of(fraction);
        is_whole_hour = fraction.find_first_not_of('0') == std::string_view::npos;
        rest.remove_prefix(fraction.size());
      }
    }
    is_whole_hour = is_whole_hour && clock.minute == 0 && clock.second == 0;
  }
  const std::optional<int> half_of_day = take_half_of_day(rest);
  if (!rest.empty() || (!has_minutes && !half_of_day)) {
    return std::nullopt;
  }
  if (half_of_day) {
    if (*hour < 1 || *hour > 12) {
      return std::nullopt;
    }
    clock.hour = *hour % 12 + *half_of_day;
  } else {
    if (*hour > 24 || (*hour == 24 && !is_whole_hour)) {
      return std::nullopt;
    }
    clock.hour = *hour;
  }
  return clock;
}
