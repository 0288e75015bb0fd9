#include "checks/several_times.hpp"

#include <algorithm>
#include <array>
#include <string>

#include "checks/foreign_names.hpp"
#include "checks/span_advice.hpp"
#include "checks/time_guess.hpp"
#include "platform/syntax/text.hpp"
#include "platform/time/written_time.hpp"

namespace {

constexpr std::array<std::string_view, 6> words_for_several_days = {
    "every", "everyday", "daily", "weekdays", "weekend", "weekends"};

/// What may stand between a start and an end. The en dash and the em dash are UTF-8.
constexpr std::array<std::string_view, 6> signs_between_times = {
    "\xe2\x80\x93", "\xe2\x80\x94", "-", " to ", " until ", " bis "};

bool is_letter(char c) {
  return (c >= 'a' && c <= 'z') || static_cast<unsigned char>(c) >= 0x80;
}

bool is_weekday(std::string_view word) {
  return english_month(word).empty() && (find_weekday(word) || !english_weekday(word).empty());
}

bool names_several_days(std::string_view lower) {
  int weekdays = 0;
  while (!lower.empty()) {
    const auto* const end = std::ranges::find_if_not(lower, is_letter);
    const std::string_view word(lower.begin(), end);
    if (std::ranges::find(words_for_several_days, word) != words_for_several_days.end()) {
      return true;
    }
    weekdays += is_weekday(word) ? 1 : 0;
    lower.remove_prefix(std::max<size_t>(word.size(), 1));
  }
  return weekdays > 1;
}

/// The end of a programme from `start`: on the same day, or after midnight.
std::string end_after(std::string_view start, std::string_view end, const ScheduleType& type) {
  const std::optional<uint64_t> start_position = position_of(start, type);
  const std::optional<uint64_t> end_position = position_of(end, type);
  if (!read_clock(lower_case(end)) || !start_position || !end_position) {
    return std::string(end);
  }
  const uint64_t day = *start_position - *start_position % seconds_per_day;
  const uint64_t same_day = day + *end_position % seconds_per_day;
  const uint64_t meant = same_day > *start_position ? same_day : a_day_later(same_day, type);
  return meant <= type.unit_length ? text_of_end(meant, type) : std::string(end);
}

/// Advice on a start and an end on both sides of a sign.
std::optional<TimeAdvice> advise_on_both(std::string_view text, size_t at, size_t sign_length,
                                         const ScheduleType& type) {
  const std::string_view start = strip_blanks(text.substr(0, at));
  const std::string_view end = strip_blanks(text.substr(at + sign_length));
  const auto has_colon = [](std::string_view time) {
    return time.find(':') != std::string_view::npos;
  };
  if (!has_colon(start) || !has_colon(end) || !is_time(start) || !is_time(end)) {
    return std::nullopt;
  }
  const std::string meant = end_after(start, end, type);
  return TimeAdvice{FindingKind::bad_time, 0,
                    quoted(text) + " are two times; write " +
                        quoted("start = " + std::string(start)) + " and " +
                        quoted("end = " + meant),
                    std::string(start), meant};
}

}  // namespace

std::optional<TimeAdvice> advise_on_several(std::string_view text, const ScheduleType& type) {
  const std::string lower = lower_case(text);
  for (const std::string_view sign : signs_between_times) {
    for (size_t at = lower.find(sign); at != std::string::npos; at = lower.find(sign, at + 1)) {
      if (auto found = advise_on_both(text, at, sign.size(), type)) {
        return found;
      }
    }
  }
  if (names_several_days(lower)) {
    return TimeAdvice{FindingKind::bad_time, 0,
                      quoted(text) + " names several days; write an item for each day"};
  }
  return std::nullopt;
}
