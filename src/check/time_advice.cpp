#include "check/time_advice.hpp"

#include <algorithm>
#include <array>
#include <ctime>
#include <optional>
#include <utility>

#include "check/position_text.hpp"
#include "platform/syntax/nearest_word.hpp"
#include "platform/syntax/text.hpp"
#include "platform/time/calendar_names.hpp"
#include "platform/time/parse_time.hpp"
#include "platform/time/written_time.hpp"

namespace {

constexpr std::array<int, 12> month_lengths = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

/// Weekdays in other languages and their short forms, in lower case.
constexpr auto foreign_weekdays = std::to_array<std::pair<std::string_view, int>>({
    {"sonntag", 0},   {"montag", 1},   {"dienstag", 2},  {"mittwoch", 3},  {"donnerstag", 4},
    {"freitag", 5},   {"samstag", 6},  {"sonnabend", 6}, {"dimanche", 0},  {"lundi", 1},
    {"mardi", 2},     {"mercredi", 3}, {"jeudi", 4},     {"vendredi", 5},  {"samedi", 6},
    {"domingo", 0},   {"lunes", 1},    {"martes", 2},    {"miercoles", 3}, {"miércoles", 3},
    {"jueves", 4},    {"viernes", 5},  {"sabado", 6},    {"sábado", 6},    {"domenica", 0},
    {"lunedi", 1},    {"lunedì", 1},   {"martedi", 2},   {"martedì", 2},   {"mercoledi", 3},
    {"mercoledì", 3}, {"giovedi", 4},  {"giovedì", 4},   {"venerdi", 5},   {"venerdì", 5},
    {"sabato", 6},    {"zondag", 0},   {"maandag", 1},   {"dinsdag", 2},   {"woensdag", 3},
    {"donderdag", 4}, {"vrijdag", 5},  {"zaterdag", 6},  {"söndag", 0},    {"måndag", 1},
    {"tisdag", 2},    {"onsdag", 3},   {"torsdag", 4},   {"fredag", 5},    {"lördag", 6},
    {"so", 0},        {"mo", 1},       {"di", 2},        {"mi", 3},        {"do", 4},
    {"fr", 5},        {"sa", 6},       {"lun", 1},       {"mar", 2},       {"mer", 3},
    {"jeu", 4},       {"ven", 5},      {"sam", 6},       {"dim", 0},       {"lu", 1},
    {"ma", 2},        {"me", 3},       {"je", 4},        {"ve", 5},        {"mie", 3},
    {"jue", 4},       {"vie", 5},      {"sab", 6},       {"dom", 0},       {"gio", 4},
    {"zo", 0},        {"wo", 3},       {"vr", 5},        {"za", 6},
});

bool is_time(std::string_view text) {
  std::tm broken_down{};
  long microseconds = 0;
  return schedule_parse_time(text, broken_down, microseconds);
}

/// Whether a clock follows the date, as in the usual form of a time.
bool is_date_and_clock(const WrittenDate& date, TimeText rest) {
  return in_range(date) && take_separators(rest) && read_clock(rest);
}

struct Word {
  size_t offset;
  std::string_view text;
};

std::vector<Word> words_of(std::string_view text) {
  std::vector<Word> words;
  for (size_t i = 0; i < text.size();) {
    if (is_separator(text[i])) {
      ++i;
      continue;
    }
    const size_t start = i;
    while (i < text.size() && !is_separator(text[i])) {
      ++i;
    }
    words.push_back({start, text.substr(start, i - start)});
  }
  return words;
}

std::string with_word_replaced(std::string_view text, const Word& word,
                               std::string_view replacement) {
  return std::string(text.substr(0, word.offset)) + std::string(replacement) +
         std::string(text.substr(word.offset + word.text.size()));
}

std::optional<TimeAdvice> advise_on_comment(std::string_view text) {
  const size_t mark = text.find('#');
  if (mark == std::string_view::npos || !is_time(strip_blanks(text.substr(0, mark)))) {
    return std::nullopt;
  }
  return TimeAdvice{
      FindingKind::comment_behind_value, mark,
      "a comment after a time makes the time invalid; put the comment on a line of its own"};
}

std::optional<TimeAdvice> advise_on_weekday(std::string_view text, const std::vector<Word>& words) {
  for (const Word& word : words) {
    std::string name = lower_case(word.text);
    if (name.ends_with('.')) {
      name.pop_back();
    }
    for (const auto& [foreign, weekday] : foreign_weekdays) {
      if (name == foreign && is_time(with_word_replaced(text, word, short_weekday(weekday)))) {
        return TimeAdvice{
            FindingKind::foreign_weekday, word.offset,
            "unknown weekday " + quoted(word.text) + "; write " + quoted(short_weekday(weekday))};
      }
    }
  }
  return std::nullopt;
}

bool is_hour(std::string_view number) {
  return number.size() <= 2 && std::ranges::all_of(number, is_digit);
}

/// Advice on a clock with a full stop, an h or nothing in place of its colon, or on an hour alone.
std::optional<TimeAdvice> advise_on_clock(std::string_view text, const std::vector<Word>& words) {
  for (const Word& word : words) {
    std::string number = lower_case(word.text);
    std::ranges::replace(number, 'h', '.');
    if ((looks_like_clock(number, true) || is_hour(number)) &&
        is_time(with_word_replaced(text, word, clock_of(number)))) {
      return TimeAdvice{
          FindingKind::bad_time, word.offset,
          quoted(word.text) + " is not understood; did you mean " + quoted(clock_of(number)) + "?"};
    }
  }
  return std::nullopt;
}

/// Advice on numbers of a clock or a date that are too large.
std::optional<TimeAdvice> advise_on_range(std::string_view text, const std::vector<Word>& words) {
  for (const Word& word : words) {
    if (word.text.find(':') != std::string_view::npos &&
        word.text.find_first_not_of("0123456789:.") == std::string_view::npos &&
        !read_clock(word.text) && is_time(with_word_replaced(text, word, "00:00"))) {
      return TimeAdvice{FindingKind::out_of_range, word.offset,
                        quoted(word.text) + " is out of range: clocks run from 00:00 to 24:00"};
    }
  }
  const std::string lower = lower_case(text);
  TimeText rest = skip_blanks(lower);
  const std::optional<WrittenDate> date = take_date(rest);
  if (date && !in_range(*date)) {
    return TimeAdvice{FindingKind::out_of_range, 0,
                      quoted(text) +
                          " is out of range: years run from 1900 to 9999, months to 12, "
                          "days to 31"};
  }
  return std::nullopt;
}

TimeAdvice advise_on_rest(std::string_view text, const std::vector<Word>& words) {
  static const std::vector<std::string_view> names = [] {
    std::vector<std::string_view> all(weekday_names.begin(), weekday_names.end());
    all.insert(all.end(), month_names.begin(), month_names.end());
    return all;
  }();
  for (const Word& word : words) {
    const auto name = nearest_word(word.text, names);
    if (name && is_time(with_word_replaced(text, word, *name))) {
      return {FindingKind::bad_time, word.offset,
              quoted(word.text) + " is not understood; did you mean " + quoted(*name) + "?"};
    }
  }
  for (const Word& word : words) {
    if (is_time(strip_blanks(with_word_replaced(text, word, "")))) {
      return {FindingKind::bad_time, word.offset, quoted(word.text) + " is not understood"};
    }
  }
  return {FindingKind::bad_time, 0, "invalid time " + quoted(text)};
}

/// The parts of a written date that a schedule of that type ignores.
std::string needless_parts(const WrittenDate& date, DayName day_name) {
  std::string parts;
  const auto add = [&](bool is_given, std::string_view part) {
    if (is_given) {
      parts += parts.empty() ? "" : " and ";
      parts += part;
    }
  };
  const bool counts_days = day_name != DayName::only_day && day_name != DayName::weekday;
  const bool counts_months = day_name == DayName::day_of_year || day_name == DayName::date;
  add(date.weekday.has_value() && day_name != DayName::weekday, "weekday");
  add(date.day.has_value() && !counts_days, date.month ? "date" : "day");
  add(date.month.has_value() && counts_days && !counts_months, "month");
  add(date.year.has_value() && counts_days && day_name != DayName::date, "year");
  return parts;
}

std::optional<TimeAdvice> advise_on_date(const WrittenDate& date, std::string_view text,
                                         const ScheduleType& type) {
  const std::string parts = needless_parts(date, type.day_name);
  if (!parts.empty()) {
    std::string advice = a_schedule_of(type.text) + " ignores the " + parts;
    if (type.day_name == DayName::weekday && !date.weekday) {
      std::tm broken_down{};
      long microseconds = 0;
      schedule_parse_time(text, broken_down, microseconds);
      advice = "a weekly schedule takes only the weekday of the date: every " +
               std::string(weekday_names.at(static_cast<size_t>(broken_down.tm_wday)));
    }
    return TimeAdvice{FindingKind::needless_date, 0, advice};
  }
  if (type.day_name == DayName::date && date.year && *date.year < first_schedule_year) {
    return TimeAdvice{FindingKind::out_of_range, 0,
                      "years before " + std::to_string(first_schedule_year) + " count as " +
                          std::to_string(first_schedule_year)};
  }
  if (date.month && date.day && in_range(date)) {
    const auto month = static_cast<size_t>(*date.month) - 1;
    if (*date.day > month_lengths.at(month)) {
      return TimeAdvice{FindingKind::no_such_date, 0,
                        std::string(month_names.at(month)) + " has no day " +
                            std::to_string(*date.day) + "; it airs on " +
                            std::string(month_names.at((month + 1) % 12)) + " " +
                            std::to_string(*date.day - month_lengths.at(month)) +
                            (month == 1 ? ", or a day later where February has no 29th" : "")};
    }
  }
  return std::nullopt;
}

}  // namespace

bool is_bare_number(std::string_view text) {
  const std::string_view number = strip_blanks(text);
  return !number.empty() && is_digit(number.front()) &&
         number.find_first_not_of("0123456789.") == std::string_view::npos && is_time(number);
}

bool looks_like_clock(std::string_view number, bool in_figures) {
  const std::string_view text = strip_blanks(number);
  const size_t point = text.find('.');
  const auto are_digits = [](std::string_view part) {
    return !part.empty() && std::ranges::all_of(part, is_digit);
  };
  if (point == std::string_view::npos) {
    return in_figures && text.size() == 4 && are_digits(text) && text.substr(0, 2) < "24" &&
           text[2] < '6';
  }
  const std::string_view hour = text.substr(0, point);
  const std::string_view minute = text.substr(point + 1);
  return hour.size() <= 2 && minute.size() == 2 && are_digits(hour) && are_digits(minute) &&
         (hour.size() < 2 || hour <= "24") && minute[0] < '6';
}

std::string clock_of(std::string_view number) {
  std::string clock(strip_blanks(number));
  const size_t point = clock.find('.');
  if (is_hour(clock)) {
    clock += ":00";
  } else if (point == std::string::npos) {
    clock.insert(2, ":");
  } else {
    clock[point] = ':';
  }
  return clock.size() == 4 ? "0" + clock : clock;
}

std::vector<TimeAdvice> advise_on_time(std::string_view text, const ScheduleType& type) {
  std::vector<TimeAdvice> advice;
  const std::string lower = lower_case(strip_blanks(text));
  TimeText rest = lower;
  if (read_clock(rest) || is_bare_number(text)) {
    return advice;
  }
  const std::optional<WrittenDate> date = take_date(rest);
  if (date && (is_date_and_clock(*date, rest) || is_time(text))) {
    if (auto found = advise_on_date(*date, text, type)) {
      advice.push_back(*std::move(found));
    }
    return advice;
  }
  const std::vector<Word> words = words_of(text);
  for (auto found : {advise_on_comment(text), advise_on_weekday(text, words),
                     advise_on_clock(text, words), advise_on_range(text, words)}) {
    if (found) {
      advice.push_back(*found);
      return advice;
    }
  }
  advice.push_back(advise_on_rest(text, words));
  return advice;
}
