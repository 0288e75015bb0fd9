#include "check/time_advice.hpp"

#include <algorithm>
#include <array>
#include <ctime>
#include <optional>
#include <utility>

#include "check/corrected_word.hpp"
#include "check/foreign_names.hpp"
#include "check/odd_characters.hpp"
#include "check/position_text.hpp"
#include "check/several_times.hpp"
#include "check/span_advice.hpp"
#include "check/time_guess.hpp"
#include "platform/syntax/nearest_word.hpp"
#include "platform/syntax/text.hpp"
#include "platform/time/calendar_names.hpp"
#include "platform/time/parse_time.hpp"
#include "platform/time/written_time.hpp"

namespace {

/// Whether a clock follows the date, as in the usual form of a time.
bool is_date_and_clock(const WrittenDate& date, TimeText rest) {
  return in_range(date) && take_separators(rest) && read_clock(rest);
}

std::string with_word_replaced(std::string_view text, const TimeWord& word,
                               std::string_view replacement) {
  return std::string(text.substr(0, word.offset)) + std::string(replacement) +
         std::string(text.substr(word.offset + word.text.size()));
}

/// Advice to write another word in place of this one. Nothing if that makes no time.
std::optional<TimeAdvice> advise_to_replace(FindingKind kind, std::string_view text,
                                            const TimeWord& word, std::string_view replacement,
                                            const std::string& message) {
  std::string time = with_word_replaced(text, word, replacement);
  if (replacement.empty() || !is_time(time)) {
    return std::nullopt;
  }
  return TimeAdvice{kind, word.offset, message, std::move(time)};
}

std::string did_you_mean_word(const TimeWord& word, std::string_view meant) {
  return quoted(word.text) + " is not understood; did you mean " + quoted(meant) + "?";
}

std::optional<TimeAdvice> advise_on_comment(std::string_view text) {
  const size_t mark = text.find('#');
  const std::string_view time = strip_blanks(text.substr(0, mark));
  if (mark == std::string_view::npos || !is_time(time)) {
    return std::nullopt;
  }
  return TimeAdvice{
      FindingKind::comment_behind_value, mark,
      "a comment after a time makes the time invalid; put the comment on a line of its own",
      std::string(time)};
}

std::optional<TimeAdvice> advise_on_name(std::string_view text,
                                         const std::vector<TimeWord>& words) {
  for (const TimeWord& word : words) {
    const std::string_view weekday = english_weekday(word.text);
    const std::string_view month = english_month(word.text);
    if (auto found = advise_to_replace(
            FindingKind::foreign_weekday, text, word, weekday,
            "unknown weekday " + quoted(word.text) + "; write " + quoted(weekday))) {
      return found;
    }
    if (auto found =
            advise_to_replace(FindingKind::bad_time, text, word, month,
                              "unknown month " + quoted(word.text) + "; write " + quoted(month))) {
      return found;
    }
  }
  return std::nullopt;
}

/// Advice on a clock with another character in place of its colon: "18,00", "18 30".
std::optional<TimeAdvice> advise_on_separator(std::string_view text) {
  for (size_t at = 1; at + 2 < text.size(); ++at) {
    size_t begin = at;
    while (begin > 0 && at - begin < 2 && is_digit(text[begin - 1])) {
      --begin;
    }
    const std::string_view minute = text.substr(at + 1, 2);
    const bool is_alone = (begin == 0 || is_separator(text[begin - 1])) &&
                          (at + 3 == text.size() || is_separator(text[at + 3]));
    const bool is_minute = is_digit(minute[0]) && is_digit(minute[1]) && minute[0] < '6';
    const bool is_sure = text[at] != ' ' || (minute[1] == '0' || minute[1] == '5');
    if (begin == at || !is_alone || !is_minute || !is_sure ||
        std::string_view(",;-_' ").find(text[at]) == std::string_view::npos) {
      continue;
    }
    const TimeWord clock{begin, text.substr(begin, at + 3 - begin)};
    const std::string meant =
        clock_of(std::string(text.substr(begin, at - begin)) + "." + std::string(minute));
    if (auto found = advise_to_replace(FindingKind::bad_time, text, clock, meant,
                                       did_you_mean_word(clock, meant))) {
      return found;
    }
  }
  return std::nullopt;
}

/// Advice on a clock with a full stop, an h or nothing in place of its colon, or on an hour alone.
std::optional<TimeAdvice> advise_on_clock(std::string_view text,
                                          const std::vector<TimeWord>& words) {
  for (const TimeWord& word : words) {
    std::string number = lower_case(word.text);
    std::ranges::replace(number, 'h', '.');
    if (!looks_like_clock(number, true) && !is_hour(number)) {
      continue;
    }
    if (auto found = advise_to_replace(FindingKind::bad_time, text, word, clock_of(number),
                                       did_you_mean_word(word, clock_of(number)))) {
      return found;
    }
  }
  return std::nullopt;
}

/// Advice on a word that alone keeps the text from being a time: "05.03.2026", "18:5", "Mon18:00".
std::optional<TimeAdvice> advise_on_word(std::string_view text, const std::vector<TimeWord>& words,
                                         const ScheduleType& type) {
  for (const TimeWord& word : words) {
    const std::string meant = corrected_word(word.text);
    const std::string time = with_word_replaced(text, word, meant);
    if (meant.empty() || meant == word.text || !is_time(time) ||
        fitted_to_type(time, type) != time) {
      continue;
    }
    return TimeAdvice{FindingKind::bad_time, word.offset, did_you_mean_word(word, meant), time};
  }
  return std::nullopt;
}

/// The seconds of a clock with hours beyond 24, as broadcasters count a night, such as "25:30".
std::optional<uint64_t> seconds_of_long_night(std::string_view clock) {
  constexpr std::string_view last_hour = "35";
  const std::string minutes = "00" + std::string(clock.substr(std::min<size_t>(2, clock.size())));
  const std::optional<ClockTime> rest = read_clock(minutes);
  if (count_digits(clock) != 2 || clock.substr(0, 2) < "24" || clock.substr(0, 2) > last_hour ||
      !rest) {
    return std::nullopt;
  }
  const int hour = (clock[0] - '0') * 10 + (clock[1] - '0');
  return static_cast<uint64_t>(hour * 3600 + rest->minute * 60 + rest->second);
}

/// Advice on numbers of a clock that are too large.
std::optional<TimeAdvice> advise_on_clock_range(std::string_view text,
                                                const std::vector<TimeWord>& words,
                                                const ScheduleType& type) {
  for (const TimeWord& word : words) {
    const std::string at_midnight = with_word_replaced(text, word, "00:00");
    if (word.text.find(':') == std::string_view::npos || word.text.ends_with(':') ||
        word.text.find_first_not_of("0123456789:.") != std::string_view::npos ||
        read_clock(word.text) || !is_time(at_midnight) ||
        is_time(with_word_replaced(text, word, corrected_word(word.text)))) {
      continue;
    }
    const std::string_view minutes = word.text.substr(word.text.find(':') + 1);
    if (minutes.size() > 2 && is_digit(minutes[2])) {
      continue;
    }
    TimeAdvice advice{FindingKind::out_of_range, word.offset,
                      quoted(word.text) + " is out of range: clocks run from 00:00 to 24:00"};
    if (minutes > "59") {
      advice.text += ", minutes to 59";
    }
    if (const std::optional<uint64_t> seconds = seconds_of_long_night(word.text)) {
      advice.position = a_day_later(position_of(at_midnight, type).value_or(0), type) + *seconds -
                        seconds_per_day;
    }
    return advice;
  }
  return std::nullopt;
}

/// Advice on numbers of a date that are too large.
std::optional<TimeAdvice> advise_on_date_range(std::string_view text,
                                               const std::vector<TimeWord>& words,
                                               const ScheduleType& type) {
  const std::string lower = lower_case(text);
  TimeText rest = skip_blanks(lower);
  const std::optional<WrittenDate> date = take_date(rest);
  if (!date || in_range(*date)) {
    return std::nullopt;
  }
  if (reordered_date(words.front().text)) {
    TimeAdvice advice{FindingKind::out_of_range, words.front().offset,
                      quoted(words.front().text) + " is out of range: the month comes first"};
    const std::optional<std::string> guess = guess_time(text);
    const std::optional<std::string> fitted = guess ? fitted_to_type(*guess, type) : std::nullopt;
    if (fitted) {
      advice.text += "; write " + quoted(*fitted);
      advice.time = *fitted;
      advice.offset = 0;
    }
    return advice;
  }
  return TimeAdvice{FindingKind::out_of_range, 0,
                    quoted(text) +
                        " is out of range: years run from 1900 to 9999, months to 12, "
                        "days to 31"};
}

std::optional<TimeAdvice> advise_on_misspelt_name(std::string_view text,
                                                  const std::vector<TimeWord>& words) {
  static const std::vector<std::string_view> names = [] {
    std::vector<std::string_view> all(weekday_names.begin(), weekday_names.end());
    all.insert(all.end(), month_names.begin(), month_names.end());
    return all;
  }();
  for (const TimeWord& word : words) {
    if (const auto name = nearest_word(word.text, names)) {
      if (auto found = advise_to_replace(FindingKind::bad_time, text, word, *name,
                                         did_you_mean_word(word, *name))) {
        return found;
      }
    }
  }
  return std::nullopt;
}

/// Advice on characters that look like those of a time.
std::optional<TimeAdvice> advise_on_odd_characters(std::string_view text) {
  std::string plain(strip_blanks(with_plain_characters(text)));
  if (plain == text || !is_time(plain)) {
    return std::nullopt;
  }
  return TimeAdvice{
      FindingKind::bad_time, 0,
      quoted(text) + " has letters or blanks that only look right; write " + quoted(plain), plain};
}

/// Advice on more than one mistake in a time, or on its order.
std::optional<TimeAdvice> advise_by_guess(std::string_view text, const ScheduleType& type) {
  const std::optional<std::string> guess = guess_time(text);
  const std::optional<std::string> fitted = guess ? fitted_to_type(*guess, type) : std::nullopt;
  if (!fitted || *fitted == text) {
    return std::nullopt;
  }
  return TimeAdvice{FindingKind::bad_time, 0, did_you_mean_word({0, text}, *fitted), *fitted};
}

TimeAdvice advise_on_rest(std::string_view text, const std::vector<TimeWord>& words) {
  for (const TimeWord& word : words) {
    std::string rest = with_word_replaced(text, word, "");
    if (is_time(strip_blanks(rest))) {
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
    const auto last_day = static_cast<int>(month_lengths.at(month));
    if (*date.day > last_day) {
      return TimeAdvice{FindingKind::no_such_date, 0,
                        std::string(month_names.at(month)) + " has no day " +
                            std::to_string(*date.day) + "; it airs on " +
                            std::string(month_names.at((month + 1) % 12)) + " " +
                            std::to_string(*date.day - last_day) +
                            (month == 1 ? ", or a day later where February has no 29th" : "")};
    }
  }
  return std::nullopt;
}

TimeAdvice advise_on_invalid_time(std::string_view text, const ScheduleType& type) {
  const std::vector<TimeWord> words = words_of(text);
  if (words.empty()) {
    return {FindingKind::bad_time, 0, "invalid time " + quoted(text)};
  }
  for (const auto& found :
       {advise_on_comment(text), advise_on_odd_characters(text), advise_on_several(text, type),
        advise_on_name(text, words), advise_on_separator(text), advise_on_clock(text, words),
        advise_on_clock_range(text, words, type), advise_on_date_range(text, words, type),
        advise_on_word(text, words, type), advise_on_misspelt_name(text, words),
        advise_by_guess(text, type)}) {
    if (found) {
      return *found;
    }
  }
  return advise_on_rest(text, words);
}

}  // namespace

bool is_bare_number(std::string_view text) {
  const std::string_view number = strip_blanks(text);
  return !number.empty() && is_digit(number.front()) &&
         number.find_first_not_of("0123456789.") == std::string_view::npos && is_time(number);
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
  advice.push_back(advise_on_invalid_time(text, type));
  return advice;
}
