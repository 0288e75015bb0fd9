#include "platform/time/parse_time.hpp"

#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "platform/syntax/schedule_types.hpp"
#include "platform/syntax/text.hpp"
#include "platform/time/civil_date.hpp"
#include "platform/time/time_scanner.hpp"
#include "platform/time/written_time.hpp"

namespace {

void fill(std::tm& broken_down, const WrittenDate& date, const ClockTime& clock) {
  broken_down = std::tm{};
  broken_down.tm_year = date.year.value_or(2020) - 1900;
  broken_down.tm_mon = date.month.value_or(1) - 1;
  broken_down.tm_mday = date.day.value_or(1);
  broken_down.tm_hour = clock.hour;
  broken_down.tm_min = clock.minute;
  broken_down.tm_sec = clock.second;
  if (date.weekday) {
    broken_down.tm_wday = *date.weekday;
  } else if (date.year) {
    // NOLINTNEXTLINE(bugprone-unchecked-optional-access): a date with a year has all of them
    const int64_t days = days_from_civil(*date.year, *date.month, *date.day);
    broken_down.tm_wday = static_cast<int>(((days + 4) % 7 + 7) % 7);  // 1970-01-01: Thursday
  }
}

/// Plain schedule seconds, broken down in the padded calendar (months of 31 days). They convert
/// back to the same number in every type of schedule. A whole number of days becomes hour 24 of the
/// day before, so that 86400 can end a daily schedule.
bool read_seconds(TimeText rest, std::tm& broken_down, long& microseconds) {
  const std::optional<int> number = take_number(rest, 1, 9);
  if (!number) {
    return false;
  }
  std::string_view fraction;
  if (take_text(rest, ".")) {
    fraction = rest.substr(0, count_digits(rest));
    if (fraction.empty()) {
      return false;
    }
    rest.remove_prefix(fraction.size());
  }
  if (!rest.empty()) {
    return false;
  }
  long days = long{*number} / seconds_per_day;
  long seconds = long{*number} % seconds_per_day;
  if (days > 0 && seconds == 0) {
    --days;
    seconds = seconds_per_day;
  }
  broken_down = std::tm{};
  broken_down.tm_year = static_cast<int>(first_schedule_year - 1900 + days / days_per_year);
  broken_down.tm_mon = static_cast<int>(days / days_per_month % 12);
  broken_down.tm_mday = static_cast<int>(days % days_per_month + 1);
  broken_down.tm_wday = static_cast<int>(days % 7);
  broken_down.tm_hour = static_cast<int>(seconds / 3600);
  broken_down.tm_min = static_cast<int>(seconds / 60 % 60);
  broken_down.tm_sec = static_cast<int>(seconds % 60);
  if (!fraction.empty()) {
    microseconds = microseconds_of(fraction);
  }
  return true;
}

bool parse_lower_case(TimeText rest, std::tm& broken_down, long& microseconds) {
  if (read_seconds(rest, broken_down, microseconds)) {
    return true;
  }
  // Read the clock first. Otherwise its hour could be taken for a day.
  std::optional<ClockTime> clock = read_clock(rest);
  WrittenDate date;
  if (!clock) {
    const std::optional<WrittenDate> found = take_date(rest);
    if (!found || !in_range(*found)) {
      return false;
    }
    date = *found;
    const bool joined = date.is_iso && take_text(rest, "t");
    if (rest.empty() && !joined) {
      clock = ClockTime();
    } else if (joined || take_separators(rest)) {
      clock = read_clock(rest);
    }
    if (!clock) {
      return false;
    }
  }
  fill(broken_down, date, *clock);
  if (clock->microseconds != 0) {
    microseconds = clock->microseconds;
  }
  return true;
}

}  // namespace

bool schedule_parse_time(std::string_view text, std::tm& broken_down, long& microseconds) {
  // Times are short. Only one with very many blanks needs its own memory.
  text = strip_blanks(text);
  std::array<char, 64> short_text;
  std::string long_text;
  char* lower = short_text.data();
  if (text.size() > short_text.size()) {
    long_text.resize(text.size());
    lower = long_text.data();
  }
  std::ranges::transform(text, lower, to_lower);
  return parse_lower_case(TimeText(lower, text.size()), broken_down, microseconds);
}
