#include "platform/time/written_time.hpp"

#include <algorithm>
#include <array>

#include "platform/syntax/text.hpp"
#include "platform/time/calendar_names.hpp"

namespace {

constexpr int first_year = 1900;

constexpr std::array<std::string_view, 4> ordinal_suffixes = {"st", "nd", "rd", "th"};

/// Whether the text, which is in lower case, is that name.
bool is_name(std::string_view text, std::string_view name) {
  return std::ranges::equal(text, name, {}, {}, to_lower);
}

/// The first three letters decide the weekday. Any letters may follow.
std::optional<int> take_weekday(TimeText& rest) {
  if (rest.empty() || is_digit(rest.front())) {
    return std::nullopt;
  }
  const std::string_view word = rest.substr(0, count_letters(rest));
  const std::optional<int> weekday = find_weekday(word);
  if (!weekday || !at_boundary(rest.substr(word.size()))) {
    return std::nullopt;
  }
  rest.remove_prefix(word.size());
  return weekday;
}

/// A month's full name or its first three letters, as 1 to 12.
std::optional<int> take_month_name(TimeText& rest) {
  const std::string_view word = rest.substr(0, count_letters(rest));
  for (size_t month = 0; month < month_names.size() && !word.empty(); ++month) {
    const std::string_view name = month_names[month];
    if (to_lower(name.front()) == word.front() &&
        (is_name(word, name) || is_name(word, name.substr(0, short_name_length))) &&
        at_boundary(rest.substr(word.size()))) {
      rest.remove_prefix(word.size());
      return static_cast<int>(month) + 1;
    }
  }
  return std::nullopt;
}

std::optional<int> take_day_with_suffix(TimeText& rest) {
  TimeText after = rest;
  const std::optional<int> day = take_number(after, 1, 2);
  if (!day) {
    return std::nullopt;
  }
  for (const std::string_view suffix : ordinal_suffixes) {
    if (take_text(after, suffix)) {
      break;
    }
  }
  if (!at_boundary(after)) {
    return std::nullopt;
  }
  rest = after;
  return day;
}

/// A year after "Mar 5" or "5 March".
void take_year_behind(TimeText& rest, WrittenDate& date) {
  TimeText after = rest;
  if (!take_separators(after)) {
    return;
  }
  const std::optional<int> year = take_number(after, 4, 4);
  if (year && at_boundary(after)) {
    date.year = year;
    rest = after;
  }
}

/// "Mar 5", "5th March", with or without a year after it.
bool take_named_date(TimeText& rest, WrittenDate& date) {
  TimeText after = rest;
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
bool take_numeric_date(TimeText& rest, WrittenDate& date) {
  TimeText after = rest;
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
    if (!take_text(after, dash)) {
      return false;
    }
    date.is_iso = dash == "-";
  }
  date.day = take_number(after, 1, 2);
  if (!year_first && dash == "/" && take_text(after, dash)) {
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

/// A letter and its number, as in "m3". Blanks may stand before and after the number.
std::optional<int> take_key_part(TimeText& rest, std::string_view letter, size_t shortest,
                                 size_t longest) {
  TimeText after = rest;
  if (!take_text(after, letter)) {
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
bool take_key_date(TimeText& rest, WrittenDate& date) {
  if (rest.empty() || is_digit(rest.front())) {
    return false;
  }
  TimeText after = rest;
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

/// A number of one or two digits before a clock.
bool take_bare_day(TimeText& rest, WrittenDate& date) {
  TimeText after = rest;
  date.day = take_number(after, 1, 2);
  TimeText behind = after;
  if (!date.day || !take_separators(behind) || !read_clock(behind)) {
    return false;
  }
  rest = after;
  return true;
}

/// One of the forms of a date without a weekday.
std::optional<WrittenDate> take_plain_date(TimeText& rest) {
  using Form = bool (*)(TimeText&, WrittenDate&);
  for (const Form form :
       {Form{take_numeric_date}, Form{take_named_date}, Form{take_key_date}, Form{take_bare_day}}) {
    WrittenDate date;
    if (form(rest, date)) {
      return date;
    }
  }
  return std::nullopt;
}

}  // namespace

std::optional<int> find_weekday(std::string_view text) {
  for (size_t weekday = 0; weekday < weekday_names.size(); ++weekday) {
    const std::string_view name = weekday_names[weekday].substr(0, short_name_length);
    if (is_name(text.substr(0, short_name_length), name)) {
      return static_cast<int>(weekday);
    }
  }
  return std::nullopt;
}

std::optional<WrittenDate> take_date(TimeText& rest) {
  const std::optional<int> weekday = take_weekday(rest);
  TimeText after = rest;
  if (weekday) {
    take_separators(after);
  }
  std::optional<WrittenDate> date = take_plain_date(after);
  if (date) {
    rest = after;
  } else if (weekday) {
    date = WrittenDate();
  }
  if (date) {
    date->weekday = weekday;
  }
  return date;
}

bool in_range(const WrittenDate& date) {
  return (!date.year || *date.year >= first_year) &&
         (!date.month || (*date.month >= 1 && *date.month <= 12)) &&
         (!date.day || (*date.day >= 1 && *date.day <= 31));
}
