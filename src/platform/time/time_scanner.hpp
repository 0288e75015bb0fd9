#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "platform/syntax/text.hpp"

// Functions that read the pieces of a written time. They are inline because a large schedule has
// hundreds of thousands of times.

/// The rest of a lower-case text. The functions remove what they recognise from its front.
/// Otherwise they leave it unchanged.
using TimeText = std::string_view;

/// The number of digits at the front of the text.
inline size_t count_digits(TimeText rest) {
  size_t count = 0;
  while (count < rest.size() && is_digit(rest[count])) {
    ++count;
  }
  return count;
}

/// The number of letters at the front of the text.
inline size_t count_letters(TimeText rest) {
  size_t count = 0;
  while (count < rest.size() && rest[count] >= 'a' && rest[count] <= 'z') {
    ++count;
  }
  return count;
}

constexpr bool is_separator(char c) {
  return is_blank(c) || c == ',';
}

/// Whether the text is empty or begins with a blank or comma.
inline bool at_boundary(TimeText rest) {
  return rest.empty() || is_separator(rest.front());
}

inline bool take_text(TimeText& rest, std::string_view text) {
  if (!rest.starts_with(text)) {
    return false;
  }
  rest.remove_prefix(text.size());
  return true;
}

/// Removes all leading blanks and commas. False when there is none.
inline bool take_separators(TimeText& rest) {
  const size_t before = rest.size();
  while (!rest.empty() && is_separator(rest.front())) {
    rest.remove_prefix(1);
  }
  return rest.size() < before;
}

/// Reads a number of `shortest` to `longest` digits. No further digit may follow.
inline std::optional<int> take_number(TimeText& rest, size_t shortest, size_t longest) {
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

/// The digits of a fraction as microseconds. Digits after the sixth are ignored.
inline long microseconds_of(std::string_view digits) {
  long microseconds = 0;
  for (size_t place = 0; place < 6; ++place) {
    microseconds = microseconds * 10 + (place < digits.size() ? digits[place] - '0' : 0);
  }
  return microseconds;
}
