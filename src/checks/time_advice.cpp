#include "checks/time_advice.hpp"

#include <algorithm>
#include <optional>
#include <utility>

#include "checks/corrected_word.hpp"
#include "checks/date_advice.hpp"
#include "checks/foreign_names.hpp"
#include "checks/odd_characters.hpp"
#include "checks/position_text.hpp"
#include "checks/several_times.hpp"
#include "checks/span_advice.hpp"
#include "checks/time_guess.hpp"
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
std::optional<TimeAdvice> advise_on_separator(std::string_view text,
                                              const std::vector<TimeWord>& words) {
  for (const TimeWord& word : words) {
    const std::string_view hour = word.text.substr(0, count_digits(word.text));
    const std::string_view rest = text.substr(word.offset + hour.size());
    if (rest.empty() || std::string_view(",;-_' ").find(rest.front()) == std::string_view::npos) {
      continue;
    }
    const std::string_view behind = rest.substr(1);
    const std::string_view minute = behind.substr(0, count_digits(behind));
    const std::string number = std::string(hour) + "." + std::string(minute);
    const bool is_alone = at_boundary(behind.substr(minute.size()));
    const bool is_sure = rest.front() != ' ' || minute.ends_with('0') || minute.ends_with('5');
    if (!is_alone || !is_sure || !is_dotted_clock(number)) {
      continue;
    }
    const TimeWord clock{word.offset, text.substr(word.offset, number.size())};
    if (auto found = advise_to_replace(FindingKind::bad_time, text, clock, clock_of(number),
                                       did_you_mean_word(clock, clock_of(number)))) {
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
    if (!looks_like_clock(number) && !is_hour(number)) {
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
    if (count_digits(minutes.substr(std::min<size_t>(2, minutes.size()))) > 0) {
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

TimeAdvice advise_on_invalid_time(std::string_view text, const ScheduleType& type) {
  const std::vector<TimeWord> words = words_of(text);
  if (words.empty()) {
    return {FindingKind::bad_time, 0, "invalid time " + quoted(text)};
  }
  for (const auto& found :
       {advise_on_comment(text), advise_on_odd_characters(text), advise_on_several(text, type),
        advise_on_name(text, words), advise_on_separator(text, words), advise_on_clock(text, words),
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
