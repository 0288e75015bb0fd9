#include "checks/corrected_word.hpp"

#include <algorithm>
#include <array>
#include <cstdio>
#include <vector>

#include "checks/foreign_names.hpp"
#include "checks/time_guess.hpp"
#include "platform/syntax/nearest_word.hpp"
#include "platform/syntax/text.hpp"
#include "platform/time/calendar_names.hpp"
#include "platform/time/written_time.hpp"

namespace {

/// Words around a time that say nothing.
constexpr std::array<std::string_view, 12> empty_words = {
    "uhr", "h", "hrs", "hours", "o'clock", "at", "on", "the", "um", "den", "kl.", "@"};

constexpr std::string_view signs_around_words = "\"'()[];";

constexpr std::array<std::string_view, 4> ends_of_ordinals = {"st", "nd", "rd", "th"};

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

/// "2026-03-05" for "20260305" and "2026.03.05".
std::optional<std::string> date_with_year_first(std::string_view word) {
  std::vector<std::string_view> parts = numbers_of(word).all;
  if (parts.size() == 1 && word.size() == 8) {
    parts = {word.substr(0, 4), word.substr(4, 2), word.substr(6)};
  }
  if (parts.size() != 3 || parts[0].size() != 4 || parts[1].size() > 2 || parts[2].size() > 2) {
    return std::nullopt;
  }
  const int month = value_of(parts[1]);
  const int day = value_of(parts[2]);
  if (month < 1 || month > 12 || day < 1 || day > 31) {
    return std::nullopt;
  }
  return date_text(value_of(parts[0]), month, day);
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
  if (clock.ends_with('.')) {
    clock.pop_back();
    if (is_hour(clock)) {
      return clock_of(clock);
    }
  }
  if (looks_like_clock(clock)) {
    return clock_of(clock);
  }
  return is_part_of_day(clock) ? clock_of_part(clock) : with_two_digits(clock);
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

std::string_view without_signs(std::string_view word) {
  while (!word.empty() && signs_around_words.find(word.front()) != std::string_view::npos) {
    word.remove_prefix(1);
  }
  while (!word.empty() && signs_around_words.find(word.back()) != std::string_view::npos) {
    word.remove_suffix(1);
  }
  return word;
}

/// The parts of a word like "5-Mar-2026" and "Mon-18:00", each corrected. Empty for other words.
std::string corrected_parts(std::string_view word) {
  constexpr std::string_view signs = "-/_";
  const bool has_letter = std::ranges::any_of(
      lower_case(word), [](char c) { return (c >= 'a' && c <= 'z') || (c & 0x80) != 0; });
  if (!has_letter || word.find_first_of(signs) == std::string_view::npos) {
    return {};
  }
  std::string text;
  while (!word.empty()) {
    const size_t end = std::min(word.find_first_of(signs), word.size());
    const std::string_view part = word.substr(0, end);
    text += (text.empty() ? "" : " ") +
            (has_four_figures(part) ? std::string(part) : corrected_word(part));
    word.remove_prefix(std::min(end + 1, word.size()));
  }
  return text;
}

}  // namespace

bool is_half_of_day(std::string_view word) {
  constexpr std::array<std::string_view, 6> halves = {"a", "p", "am", "pm", "a.m.", "p.m."};
  return std::ranges::find(halves, word) != halves.end();
}

bool has_four_figures(std::string_view word) {
  return word.size() == 4 && count_digits(word) == 4;
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

std::string corrected_word(std::string_view written) {
  const std::string_view word = without_signs(written);
  const std::string lower = lower_case(word);
  if (lower == "noon") {
    return "12:00";
  }
  if (std::ranges::find(empty_words, lower) != empty_words.end()) {
    return {};
  }
  for (const auto& date : {reordered_date(lower), date_with_year_first(lower)}) {
    if (date) {
      return *date;
    }
  }
  if (std::string parts = corrected_parts(word); !parts.empty()) {
    return parts;
  }
  const size_t digits = count_digits(lower);
  const std::string behind = lower.substr(digits);
  const bool is_ordinal =
      behind == "." || std::ranges::find(ends_of_ordinals, behind) != ends_of_ordinals.end();
  if (digits > 0 && digits <= 2 && is_ordinal) {
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
