#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "platform/syntax/text.hpp"

// The pieces of which a written time is read. They stand here to be inlined: a large schedule has
// hundreds of thousands of times.

/// What is still to be read of a lower-case text. Readers take what they recognise off the front
/// and leave the text alone otherwise.
using TimeText = std::string_view;

/// The number of digits that the text begins with.
inline size_t count_digits(TimeText rest) {
  size_t count = 0;
  while (count < rest.size() && is_digit(rest[count])) {
    ++count;
  }
  return count;
}

/// The number of letters that the text begins with.
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

/// Whether the text ends here, or a blank or comma parts what follows.
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

/// Takes all blanks and commas; false when there is none.
inline bool take_separators(TimeText& rest) {
  const size_t before = rest.size();
  while (!rest.empty() && is_separator(rest.front())) {
    rest.remove_prefix(1);
  }
  return rest.size() < before;
}

/// Takes a run of digits that is `shortest` to `longest` digits long, no more.
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

/// The digits of a fraction as microseconds; digits past the sixth are cut off.
inline long microseconds_of(std::string_view digits) {
  long microseconds = 0;
  for (size_t place = 0; place < 6; ++place) {
    microseconds = microseconds * 10 + (place < digits.size() ? digits[place] - '0' : 0);
  }
  return microseconds;
}
