#include "import/day_text.hpp"

#include <algorithm>
#include <string>

#include "import/day_words.hpp"
#include "import/folded_word.hpp"
#include "platform/syntax/text.hpp"
#include "platform/time/written_time.hpp"

namespace {

bool is_word_byte(char c) {
  return (c >= 'a' && c <= 'z') || c == '\'' || static_cast<unsigned char>(c) >= 0x80;
}

size_t count_word(std::string_view text) {
  return static_cast<size_t>(std::ranges::find_if_not(text, is_word_byte) - text.begin());
}

/// Blanks, dashes and words without a meaning inside a date.
void skip_date_gap(std::string_view& text) {
  while (true) {
    const std::string_view before = text;
    text = skip_blanks(text);
    take_day_sign(text, '-');
    take_day_sign(text, '.');
    const std::string_view at_word = text;
    if (!is_date_filler(take_day_word(text))) {
      text = at_word;
    }
    if (text == before) {
      return;
    }
  }
}

/// "5", "5th", "5."; nothing when it is a part of a longer number.
std::optional<int> take_day_number(std::string_view& text) {
  const std::string_view before = text;
  if (const std::optional<int> ordinal = take_ordinal_number(text)) {
    return ordinal;
  }
  const size_t digits = count_digits(text);
  const std::string_view number = text.substr(0, digits);
  text.remove_prefix(digits);
  const bool goes_on =
      text.size() > 1 && is_digit(text[1]) && text.front() != ' ' && text.front() != ',';
  if (digits == 0 || digits > 2 || goes_on) {
    text = before;
    return std::nullopt;
  }
  return number_at_front(number);
}

/// Behind day and month: "2026", ", 2026", "-26".
std::optional<int> take_year(std::string_view& text) {
  const std::string_view before = text;
  const bool has_dash = take_day_sign(text, '-');
  take_day_sign(text, ',');
  skip_date_gap(text);
  const size_t digits = count_digits(text);
  const int number = number_at_front(text.substr(0, digits));
  if (digits == 4 || (digits == 2 && has_dash)) {
    text.remove_prefix(digits);
    return digits == 4 ? number : 2000 + number;
  }
  text = before;
  return std::nullopt;
}

}  // namespace

std::string_view take_day_word(std::string_view& text) {
  const std::string_view word = text.substr(0, count_word(text));
  text.remove_prefix(word.size());
  return word;
}

bool take_day_sign(std::string_view& text, char sign) {
  const bool is_there = text.starts_with(sign);
  text.remove_prefix(is_there ? 1 : 0);
  return is_there;
}

std::optional<int> take_ordinal_number(std::string_view& text) {
  const size_t digits = count_digits(text);
  if (digits == 0 || digits > 2) {
    return std::nullopt;
  }
  const int number = number_at_front(text.substr(0, digits));
  std::string_view behind = text.substr(digits);
  const std::string_view ending = behind.substr(0, count_word(behind));
  if (is_ordinal_ending(ending)) {
    behind.remove_prefix(ending.size());
  } else if (behind.starts_with('.') && count_digits(behind.substr(1)) == 0) {
    behind.remove_prefix(1);
  } else {
    return std::nullopt;
  }
  text = behind;
  return number;
}

std::optional<CellDate> take_key_date(std::string_view& text) {
  const std::string_view word = text.substr(0, count_letters(text));
  const std::string_view behind = text.substr(word.size());
  const bool has_number = !skip_blanks(behind).empty() && is_digit(skip_blanks(behind).front());
  const bool is_key = is_listed_word(word, "y,m,d,dom,day,tag,jour,dia") && has_number;
  if (!is_key) {
    return std::nullopt;
  }
  std::string key(word.size() > 1 ? "d" + std::string(skip_blanks(behind)) : std::string(text));
  TimeText tail = key;
  const std::optional<WrittenDate> date = take_date(tail);
  if (!date || !in_range(*date) || !date->day) {
    return std::nullopt;
  }
  text = text.substr(text.size() - tail.size());
  return CellDate{date->year, date->month, *date->day};
}

std::optional<CellDate> take_worded_date(std::string_view& text) {
  const std::string_view before = text;
  std::optional<int> month = find_month_word(take_day_word(text));
  std::optional<int> day;
  if (month) {
    skip_date_gap(text);
    day = take_day_number(text);
  } else {
    text = before;
    day = take_day_number(text);
    skip_date_gap(text);
    month = find_month_word(take_day_word(text));
    take_day_sign(text, '.');
  }
  if (!month || !day || *day < 1 || *day > 31) {
    text = before;
    return std::nullopt;
  }
  return CellDate{take_year(text), month, *day};
}
