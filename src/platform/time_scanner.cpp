#include "platform/time_scanner.hpp"

#include "platform/text.hpp"

namespace {

bool is_separator(char c) {
  return is_blank(c) || c == ',';
}

}  // namespace

size_t count_digits(TimeText rest) {
  size_t count = 0;
  while (count < rest.size() && is_digit(rest[count])) {
    ++count;
  }
  return count;
}

size_t count_letters(TimeText rest) {
  size_t count = 0;
  while (count < rest.size() && rest[count] >= 'a' && rest[count] <= 'z') {
    ++count;
  }
  return count;
}

bool at_boundary(TimeText rest) {
  return rest.empty() || is_separator(rest.front());
}

bool take_text(TimeText& rest, std::string_view text) {
  if (!rest.starts_with(text)) {
    return false;
  }
  rest.remove_prefix(text.size());
  return true;
}

bool take_separators(TimeText& rest) {
  const size_t before = rest.size();
  while (!rest.empty() && is_separator(rest.front())) {
    rest.remove_prefix(1);
  }
  return rest.size() < before;
}

std::optional<int> take_number(TimeText& rest, size_t shortest, size_t longest) {
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

long microseconds_of(std::string_view digits) {
  long microseconds = 0;
  for (size_t place = 0; place < 6; ++place) {
    microseconds = microseconds * 10 + (place < digits.size() ? digits[place] - '0' : 0);
  }
  return microseconds;
}
