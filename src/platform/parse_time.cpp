#include "platform/parse_time.hpp"

#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "platform/civil_date.hpp"
#include "platform/text.hpp"

namespace {

constexpr int first_year = 1900;
constexpr int last_year = 9999;
constexpr long seconds_per_day = 86400;

constexpr std::array<std::string_view, 7> weekday_letters = {"sun", "mon", "tue", "wed",
                                                             "thu", "fri", "sat"};
constexpr std::array<std::string_view, 12> month_names = {
    "january", "february", "march",     "april",   "may",      "june",
    "july",    "august",   "september", "october", "november", "december"};
constexpr std::array<std::string_view, 4> ordinal_suffixes = {"st", "nd", "rd", "th"};

struct Clock {
  int hour = 0;
  int minute = 0;
  int second = 0;
  long microseconds = 0;
};

struct Date {
  std::optional<int> year;
  std::optional<int> month;  // 1 to 12
  std::optional<int> day;
  std::optional<int> weekday;
  bool is_iso = false;       // YYYY-MM-DD, which a "T" may join to its clock
  bool needs_clock = false;  // a bare number is a day only before a clock
};

/// What is still to be read of a lower-case text. Readers take what they recognise off the front
/// and leave the text alone otherwise.
using Rest = std::string_view;

size_t count_digits(Rest rest) {
  size_t count = 0;
  while (count < rest.size() && is_digit(rest[count])) {
    ++count;
  }
  return count;
}

size_t count_letters(Rest rest) {
  size_t count = 0;
  while (count < rest.size() && rest[count] >= 'a' && rest[count] <= 'z') {
    ++count;
  }
  return count;
}

bool is_separator(char c) {
  return is_blank(c) || c == ',';
}

bool at_boundary(Rest rest) {
  return rest.empty() || is_separator(rest.front());
}

bool take(Rest& rest, std::string_view text) {
  if (!rest.starts_with(text)) {
    return false;
  }
  rest.remove_prefix(text.size());
  return true;
}

bool take_separators(Rest& rest) {
  const size_t before = rest.size();
  while (!rest.empty() && is_separator(rest.front())) {
    rest.remove_prefix(1);
  }
  return rest.size() < before;
}

/// A run of digits that is `shortest` to `longest` digits long, no more.
std::optional<int> take_number(Rest& rest, size_t shortest, size_t longest) {
  int number = 0;
  size_t digits = 0;
  for (; digits < rest.size() && is_digit(rest[digits]); ++digits) {
    if (digits == longest) {
      return std::nullopt;
    }
    number = number * 10 + (rest[digits] - '0');
  }
  if (digits < shortest) {
    return std::nullopt;
  }
  rest.remove_prefix(digits);
  return number;
}

/// The digits of a fraction as microseconds; digits past the sixth are cut off.
long microseconds_of(std::string_view digits) {
  long microseconds = 0;
  for (size_t place = 0; place < 6; ++place) {
    microseconds = microseconds * 10 + (place < digits.size() ? digits[place] - '0' : 0);
  }
  return microseconds;
}

/// "a", "am", "a.m." and the same with p: 0 for the morning, 12 for the afternoon.
std::optional<int> take_half_of_day(Rest& rest) {
  Rest after = skip_blanks(rest);
  if (after.empty() || (after.front() != 'a' && after.front() != 'p')) {
    return std::nullopt;
  }
  const int hours = after.front() == 'a' ? 0 : 12;
  after.remove_prefix(1);
  if (!take(after, ".m.")) {
    take(after, "m");
  }
  rest = after;
  return hours;
}

/// A clock that ends the text.
std::optional<Clock> read_clock(Rest rest) {
  Clock clock;
  const std::optional<int> hour = take_number(rest, 1, 2);
  if (!hour) {
    return std::nullopt;
  }
  bool is_whole_hour = true;
  const bool has_minutes = take(rest, ":");
  if (has_minutes) {
    const std::optional<int> minute = take_number(rest, 2, 2);
    if (!minute || *minute > 59) {
      return std::nullopt;
    }
    clock.minute = *minute;
    if (take(rest, ":")) {
      const std::optional<int> second = take_number(rest, 2, 2);
      if (!second || *second > 59) {
        return std::nullopt;
      }
      clock.second = *second;
      if (take(rest, ".")) {
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

/// A weekday is known by its first three letters, whatever letters follow.
std::optional<int> take_weekday(Rest& rest) {
  if (rest.empty() || is_digit(rest.front())) {
    return std::nullopt;
  }
  const std::string_view word = rest.substr(0, count_letters(rest));
  for (size_t weekday = 0; weekday < weekday_letters.size(); ++weekday) {
    if (word.starts_with(weekday_letters[weekday]) && at_boundary(rest.substr(word.size()))) {
      rest.remove_prefix(word.size());
      return static_cast<int>(weekday);
    }
  }
  return std::nullopt;
}

/// A month's name, whole or its first three letters, as 1 to 12.
std::optional<int> take_month_name(Rest& rest) {
  const std::string_view word = rest.substr(0, count_letters(rest));
  for (size_t month = 0; month < month_names.size(); ++month) {
    if ((word == month_names[month] || word == month_names[month].substr(0, 3)) &&
        at_boundary(rest.substr(word.size()))) {
      rest.remove_prefix(word.size());
      return static_cast<int>(month) + 1;
    }
  }
  return std::nullopt;
}

std::optional<int> take_day_with_suffix(Rest& rest) {
  Rest after = rest;
  const std::optional<int> day = take_number(after, 1, 2);
  if (!day) {
    return std::nullopt;
  }
  for (const std::string_view suffix : ordinal_suffixes) {
    if (take(after, suffix)) {
      break;
    }
  }
  if (!at_boundary(after)) {
    return std::nullopt;
  }
  rest = after;
  return day;
}

/// A year behind "Mar 5" or "5 March".
void take_year_behind(Rest& rest, Date& date) {
  Rest after = rest;
  if (!take_separators(after)) {
    return;
  }
  const std::optional<int> year = take_number(after, 4, 4);
  if (year && at_boundary(after)) {
    date.year = year;
    rest = after;
  }
}

/// "Mar 5", "5th March", each with or without a year behind.
bool take_named_date(Rest& rest, Date& date) {
  Rest after = rest;
  if ((date.month = take_month_name(after))) {
    date.day = take_separators(after) ? take_day_with_suffix(after) : std::nullopt;
  } else if ((date.day = take_day_with_suffix(after))) {
    date.month = take_separators(after) ? take_month_name(after) : std::nullopt;
  }
  if (!date.month || !date.day) {
    return false;
  }
  take_year_behind(after, date);
  rest = after;
  return true;
}

/// YYYY-MM-DD, YYYY/MM/DD, MM/DD/YYYY, MM-DD, MM/DD.
bool take_numeric_date(Rest& rest, Date& date) {
  Rest after = rest;
  const bool year_first = count_digits(after) == 4;
  if (year_first) {
    date.year = take_number(after, 4, 4);
  } else {
    date.month = take_number(after, 1, 2);
  }
  if (after.empty() || (after.front() != '-' && after.front() != '/')) {
    return false;
  }
  const std::string_view dash = after.substr(0, 1);
  after.remove_prefix(1);
  if (year_first) {
    date.month = take_number(after, 1, 2);
    if (!take(after, dash)) {
      return false;
    }
    date.is_iso = dash == "-";
  }
  date.day = take_number(after, 1, 2);
  if (!year_first && dash == "/" && take(after, dash)) {
    date.year = take_number(after, 4, 4);
    if (!date.year) {
      return false;
    }
  }
  if (!date.month || !date.day) {
    return false;
  }
  rest = after;
  return true;
}

/// A letter and its number, as in "m3", blanks allowed around the number.
std::optional<int> take_key_part(Rest& rest, std::string_view letter, size_t shortest,
                                 size_t longest) {
  Rest after = rest;
  if (!take(after, letter)) {
    return std::nullopt;
  }
  after = skip_blanks(after);
  const std::optional<int> number = take_number(after, shortest, longest);
  if (number) {
    rest = after;
  }
  return number;
}

/// y2026m3d5, m3d5, d5 as in a defaults section, and "day 5", "dom 5".
bool take_key_date(Rest& rest, Date& date) {
  Rest after = rest;
  for (const std::string_view word : {"day", "dom"}) {
    if ((date.day = take_key_part(after, word, 1, 2))) {
      rest = after;
      return true;
    }
  }
  date.year = take_key_part(after, "y", 4, 4);
  if (date.year) {
    after = skip_blanks(after);
  }
  date.month = take_key_part(after, "m", 1, 2);
  if (date.month) {
    after = skip_blanks(after);
  }
  date.day = take_key_part(after, "d", 1, 2);
  if (!date.day || (date.year && !date.month)) {
    return false;
  }
  rest = after;
  return true;
}

/// A number of one or two digits that a clock follows.
bool take_bare_day(Rest& rest, Date& date) {
  Rest after = rest;
  date.day = take_number(after, 1, 2);
  Rest behind = after;
  if (!date.day || !take_separators(behind) || !read_clock(behind)) {
    return false;
  }
  date.needs_clock = true;
  rest = after;
  return true;
}

bool in_range(const Date& date) {
  return (!date.year || (*date.year >= first_year && *date.year <= last_year)) &&
         (!date.month || (*date.month >= 1 && *date.month <= 12)) &&
         (!date.day || (*date.day >= 1 && *date.day <= 31));
}

/// One of the forms of a date without a weekday.
std::optional<Date> take_plain_date(Rest& rest) {
  using Form = bool (*)(Rest&, Date&);
  for (const Form form :
       {Form{take_numeric_date}, Form{take_named_date}, Form{take_key_date}, Form{take_bare_day}}) {
    Date date;
    if (form(rest, date)) {
      return date;
    }
  }
  return std::nullopt;
}

/// A date with its weekday in front, or either alone.
std::optional<Date> take_date(Rest& rest) {
  const std::optional<int> weekday = take_weekday(rest);
  Rest after = rest;
  if (weekday) {
    take_separators(after);
  }
  std::optional<Date> date = take_plain_date(after);
  if (date) {
    rest = after;
  } else if (weekday) {
    date = Date();
  }
  if (date) {
    date->weekday = weekday;
  }
  return date;
}

void fill(std::tm& broken_down, const Date& date, const Clock& clock) {
  broken_down = std::tm{};
  broken_down.tm_year = date.year.value_or(2020) - first_year;
  broken_down.tm_mon = date.month.value_or(1) - 1;
  broken_down.tm_mday = date.day.value_or(1);
  broken_down.tm_hour = clock.hour;
  broken_down.tm_min = clock.minute;
  broken_down.tm_sec = clock.second;
  if (date.weekday) {
    broken_down.tm_wday = *date.weekday;
  } else if (date.year) {
    const int64_t days = days_from_civil(*date.year, *date.month, *date.day);
    broken_down.tm_wday = static_cast<int>(((days + 4) % 7 + 7) % 7);  // 1970-01-01: Thursday
  }
}

/// Bare schedule seconds, broken down by the padded calendar of schedules (months of 31 days), so
/// that they come back as the same number in every type of schedule. A whole number of days is
/// the end of the day before, hour 24, so that 86400 can end a daily schedule.
bool read_seconds(Rest rest, std::tm& broken_down, long& microseconds) {
  const std::optional<int> number = take_number(rest, 1, 9);
  if (!number) {
    return false;
  }
  std::string_view fraction;
  if (take(rest, ".")) {
    fraction = rest.substr(0, count_digits(rest));
    if (fraction.empty()) {
      return false;
    }
    rest.remove_prefix(fraction.size());
  }
  if (!rest.empty()) {
    return false;
  }
  long days = *number / seconds_per_day;
  long seconds = *number % seconds_per_day;
  if (days > 0 && seconds == 0) {
    --days;
    seconds = seconds_per_day;
  }
  broken_down = std::tm{};
  broken_down.tm_year = static_cast<int>(120 + days / 372);
  broken_down.tm_mon = static_cast<int>(days / 31 % 12);
  broken_down.tm_mday = static_cast<int>(days % 31 + 1);
  broken_down.tm_wday = static_cast<int>(days % 7);
  broken_down.tm_hour = static_cast<int>(seconds / 3600);
  broken_down.tm_min = static_cast<int>(seconds / 60 % 60);
  broken_down.tm_sec = static_cast<int>(seconds % 60);
  if (!fraction.empty()) {
    microseconds = microseconds_of(fraction);
  }
  return true;
}

bool parse_lower_case(Rest rest, std::tm& broken_down, long& microseconds) {
  if (read_seconds(rest, broken_down, microseconds)) {
    return true;
  }
  // A clock is tried first: its hour must not be taken for a day.
  std::optional<Clock> clock = read_clock(rest);
  Date date;
  if (!clock) {
    const std::optional<Date> found = take_date(rest);
    if (!found || !in_range(*found)) {
      return false;
    }
    date = *found;
    const bool joined = date.is_iso && take(rest, "t");
    if (rest.empty() && !joined && !date.needs_clock) {
      clock = Clock();
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
  // Times are short; only one with very many blanks in it needs room of its own.
  text = strip_blanks(text);
  std::array<char, 64> short_text;
  std::string long_text;
  char* lower = short_text.data();
  if (text.size() > short_text.size()) {
    long_text.resize(text.size());
    lower = long_text.data();
  }
  std::transform(text.begin(), text.end(), lower, to_lower);
  return parse_lower_case(Rest(lower, text.size()), broken_down, microseconds);
}
