#include "checks/time_guess.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>

#include "checks/corrected_word.hpp"
#include "checks/foreign_names.hpp"
#include "checks/odd_characters.hpp"
#include "checks/position_text.hpp"
#include "checks/span_advice.hpp"
#include "platform/syntax/nearest_word.hpp"
#include "platform/syntax/text.hpp"
#include "platform/time/parse_time.hpp"
#include "platform/time/written_time.hpp"

namespace {

/// The words of a text, each corrected. Beside a clock, "2026" is a year and "5.3" a date.
std::vector<std::string> corrected_words(std::string_view text) {
  std::vector<std::string> words;
  const std::vector<TimeWord> written = words_of(text);
  const auto is_clock = [](const TimeWord& word) {
    return corrected_word(word.text).find(':') != std::string::npos;
  };
  const auto clocks = std::ranges::count_if(written, is_clock);
  for (const TimeWord& word : written) {
    const bool is_beside_clock = clocks > (is_clock(word) ? 1 : 0);
    std::string corrected = corrected_word(word.text);
    if (is_beside_clock && has_four_figures(word.text)) {
      corrected = word.text;
    } else if (is_beside_clock) {
      corrected = reordered_date(std::string(word.text) + ".").value_or(corrected);
    }
    if (!corrected.empty()) {
      words.push_back(std::move(corrected));
    }
  }
  return words;
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

bool is_part_of_day(std::string_view number) {
  return number.starts_with("0.") && number.size() > 2;
}

std::string clock_of_part(std::string_view number) {
  const auto second = static_cast<unsigned>(
      std::lround(std::strtod(std::string(number).c_str(), nullptr) * seconds_per_day));
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), second % 60 == 0 ? "%02u:%02u" : "%02u:%02u:%02u",
                second / 3600, second / 60 % 60, second % 60);
  return text.data();
}

bool is_dotted_clock(std::string_view number) {
  const std::string_view text = strip_blanks(number);
  const size_t point = text.find('.');
  if (point == std::string_view::npos) {
    return false;
  }
  const std::string_view hour = text.substr(0, point);
  const std::string_view minute = text.substr(point + 1);
  return is_hour(hour) && minute.size() == 2 && count_digits(minute) == 2 &&
         (hour.size() < 2 || hour <= "24") && minute[0] < '6';
}

bool looks_like_clock(std::string_view number) {
  const std::string_view text = strip_blanks(number);
  return is_dotted_clock(text) ||
         (has_four_figures(text) && text.substr(0, 2) < "24" && text[2] < '6');
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
  std::vector<std::string> words = corrected_words(rest);
  if (const std::string guess = joined(words); is_time(guess)) {
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
