#include "checks/time_guess.hpp"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <ctime>

#include "checks/foreign_names.hpp"
#include "checks/odd_characters.hpp"
#include "checks/position_text.hpp"
#include "checks/span_advice.hpp"
#include "platform/syntax/nearest_word.hpp"
#include "platform/syntax/text.hpp"
#include "platform/time/calendar_names.hpp"
#include "platform/time/parse_time.hpp"
#include "platform/time/written_time.hpp"

namespace {

/// Words around a time that say nothing.
constexpr std::array<std::string_view, 11> empty_words = {
    "uhr", "h", "hrs", "hours", "o'clock", "at", "on", "the", "um", "den", "kl."};

/// The numbers of a text like "05.03.2026". The separator is the same throughout.
struct Numbers {
  std::vector<std::string_view> all;
  char separator = 0;
  bool ends_with_separator = false;
};

Numbers numbers_of(std::string_view word) {
  Numbers numbers;
  while (!word.empty()) {
    const size_t digits = count_digits(word);
    if (digits == 0) {
      return {};
    }
    numbers.all.push_back(word.substr(0, digits));
    word.remove_prefix(digits);
    numbers.ends_with_separator = !word.empty();
    if (word.empty()) {
      break;
    }
    if (numbers.separator != 0 && word.front() != numbers.separator) {
      return {};
    }
    numbers.separator = word.front();
    word.remove_prefix(1);
  }
  return numbers;
}

int value_of(std::string_view digits) {
  return number_at_front(digits);
}

std::string date_text(int year, int month, int day) {
  if (year > 0) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02d", year, month, day);
    return text.data();
  }
  return std::string(month_names.at(static_cast<size_t>(month) - 1).substr(0, 3)) + " " +
         std::to_string(day);
}

bool is_half_of_day(std::string_view word) {
  constexpr std::array<std::string_view, 6> halves = {"a", "p", "am", "pm", "a.m.", "p.m."};
  return std::ranges::find(halves, word) != halves.end();
}

/// "18:5" and "18:00:00:00", with frames, as valid clocks; the text itself if it is neither.
std::string with_two_digits(std::string_view clock) {
  const Numbers numbers = numbers_of(clock);
  if (numbers.separator != ':' || numbers.all.size() < 2 || numbers.all.size() > 4 ||
      numbers.ends_with_separator) {
    return std::string(clock);
  }
  std::string text(numbers.all[0]);
  for (size_t i = 1; i < std::min<size_t>(numbers.all.size(), 3); ++i) {
    text += (numbers.all[i].size() == 1 ? ":0" : ":") + std::string(numbers.all[i]);
  }
  return text;
}

/// A clock of 24 hours without the "am" or "pm" that contradicts it: "18:00" for "18:00pm".
std::string without_half_of_day(std::string_view clock) {
  const size_t letter = clock.find_first_of("ap");
  if (letter == std::string_view::npos || letter == 0 || !is_digit(clock.front()) ||
      !is_half_of_day(clock.substr(letter)) || read_clock(clock)) {
    return std::string(clock);
  }
  return std::string(clock.substr(0, letter));
}

std::string corrected_clock(std::string_view word) {
  std::string clock = without_half_of_day(word);
  if (clock.ends_with("uhr")) {
    clock.resize(clock.size() - 3);
  }
  std::ranges::replace(clock, 'h', '.');
  if (clock.ends_with('.') && is_hour(clock.substr(0, clock.size() - 1))) {
    clock += "00";
  }
  return looks_like_clock(clock, true) ? clock_of(clock) : with_two_digits(clock);
}

std::string corrected_name(std::string_view word) {
  std::vector<std::string_view> names(weekday_names.begin(), weekday_names.end());
  names.insert(names.end(), month_names.begin(), month_names.end());
  const std::string_view letters = word.ends_with('.') ? word.substr(0, word.size() - 1) : word;
  const std::string lower = lower_case(letters);
  const auto is_name = [&](std::string_view name) {
    return lower == lower_case(name) || lower == lower_case(name.substr(0, short_name_length));
  };
  if (std::ranges::any_of(names, is_name)) {
    return std::string(letters);
  }
  for (const std::string_view english : {english_weekday(word), english_month(word)}) {
    if (!english.empty()) {
      return std::string(english);
    }
  }
  return std::string(find_weekday(lower) ? letters : nearest_word(word, names).value_or(word));
}

/// Joins the words. The clock, with the half of its day, is the last.
std::string joined(const std::vector<std::string>& words) {
  std::string date;
  std::string clock;
  for (const std::string& word : words) {
    const bool is_clock = word.find(':') != std::string::npos && is_digit(word.front());
    std::string& part = is_clock || (!clock.empty() && is_half_of_day(word)) ? clock : date;
    part += (part.empty() ? "" : " ") + word;
  }
  const size_t blank = clock.find(' ');
  if (blank != std::string::npos && !read_clock(clock) && read_clock(clock.substr(0, blank))) {
    clock.resize(blank);
  }
  return date + (date.empty() || clock.empty() ? "" : " ") + clock;
}

}  // namespace

std::vector<TimeWord> words_of(std::string_view text) {
  std::vector<TimeWord> words;
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

bool is_time(std::string_view text) {
  std::tm broken_down{};
  long microseconds = 0;
  return schedule_parse_time(text, broken_down, microseconds);
}

bool is_hour(std::string_view number) {
  return !number.empty() && number.size() <= 2 && std::ranges::all_of(number, is_digit);
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

std::optional<std::string> reordered_date(std::string_view word) {
  const Numbers numbers = numbers_of(word);
  if (numbers.all.size() < 2 || numbers.all.size() > 3 || numbers.all[0].size() > 2 ||
      numbers.all[1].size() > 2) {
    return std::nullopt;
  }
  const int first = value_of(numbers.all[0]);
  const int second = value_of(numbers.all[1]);
  const bool has_year = numbers.all.size() == 3;
  int year = has_year ? value_of(numbers.all[2]) : 0;
  if (has_year && numbers.all[2].size() == 2) {
    year += 2000;
  }
  const bool is_day_first = first >= 1 && first <= 31 && second >= 1 && second <= 12;
  const bool is_date = has_year ? year >= 1900 : true;
  // "18.00" and "5.30" are clocks.
  const bool is_dotted = numbers.separator == '.' && (has_year || numbers.ends_with_separator);
  const bool is_slashed =
      (numbers.separator == '/' || numbers.separator == '-') && (first > 12 || has_year);
  if (!is_date || (!is_dotted && !is_slashed)) {
    return std::nullopt;
  }
  if (is_day_first && (is_dotted || first > 12)) {
    return date_text(year, second, first);
  }
  const bool is_month_first = first >= 1 && first <= 12 && second > 12 && second <= 31;
  return is_slashed && is_month_first ? std::optional(date_text(year, first, second))
                                      : std::nullopt;
}

std::string corrected_word(std::string_view word) {
  const std::string lower = lower_case(word);
  if (std::ranges::find(empty_words, lower) != empty_words.end()) {
    return {};
  }
  if (const auto date = reordered_date(lower)) {
    return *date;
  }
  const size_t digits = count_digits(lower);
  if (digits > 0 && digits <= 2 && lower.substr(digits) == ".") {
    return lower.substr(0, digits);
  }
  if (digits > 0) {
    return corrected_clock(lower);
  }
  const size_t number = lower.find_first_of("0123456789");
  if (number == std::string::npos) {
    return is_half_of_day(lower) ? lower : corrected_name(word);
  }
  const std::string name = corrected_name(word.substr(0, number));
  return find_weekday(lower_case(name)) ? name + " " + corrected_clock(lower.substr(number))
                                        : lower;
}

std::optional<std::string> guess_time(std::string_view text) {
  const std::string plain = with_plain_characters(text);
  std::string_view rest = plain;
  while (rest.starts_with('=') || (!rest.empty() && is_blank(rest.front()))) {
    rest.remove_prefix(1);
  }
  rest = strip_blanks(rest);
  if (is_time(rest)) {
    return std::string(rest);
  }
  std::vector<std::string> words;
  for (const TimeWord& word : words_of(rest)) {
    std::string corrected = corrected_word(word.text);
    if (!corrected.empty()) {
      words.push_back(std::move(corrected));
    }
  }
  if (const std::string guess = joined(words); is_time(guess) && !words.empty()) {
    return guess;
  }
  if (words.size() > 1 && is_hour(words.back())) {
    words.back() = clock_of(words.back());
    if (const std::string guess = joined(words); is_time(guess)) {
      return guess;
    }
  }
  return std::nullopt;
}

std::optional<std::string> fitted_to_type(const std::string& text, const ScheduleType& type) {
  const std::string lower = lower_case(text);
  TimeText rest = lower;
  if (read_clock(rest)) {
    return text;
  }
  const WrittenDate date = take_date(rest).value_or(WrittenDate());
  const bool has_weekday = date.weekday || date.year;
  const std::optional<uint64_t> position = position_of(text, type);
  switch (type.day_name) {
    case DayName::only_day:
      return position ? std::optional(written_position(*position, type)) : std::nullopt;
    case DayName::weekday:
      return has_weekday && position
                 ? std::optional(date.day ? written_position(*position, type) : text)
                 : std::nullopt;
    case DayName::day_of_month:
      return date.day && position
                 ? std::optional(date.month || date.weekday ? written_position(*position, type)
                                                            : text)
                 : std::nullopt;
    case DayName::day_of_year:
      return date.month && position
                 ? std::optional(date.year || date.weekday ? written_position(*position, type)
                                                           : text)
                 : std::nullopt;
    case DayName::date:
      return date.year && position
                 ? std::optional(date.weekday ? written_position(*position, type) : text)
                 : std::nullopt;
    case DayName::none:
    case DayName::number:
      break;
  }
  return text;
}
