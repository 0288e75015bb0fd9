#include "platform/syntax/text.hpp"

#include <algorithm>
#include <charconv>
#include <limits>

std::string lower_case(std::string_view text) {
  std::string lower(text);
  std::ranges::transform(lower, lower.begin(), to_lower);
  return lower;
}

std::string upper_case(std::string_view text) {
  std::string upper(text);
  std::ranges::transform(upper, upper.begin(), to_upper);
  return upper;
}

std::string_view take_line(std::string_view& text) {
  std::string_view line = text.substr(0, text.find('\n'));
  text.remove_prefix(std::min(line.size() + 1, text.size()));
  chomp(line);
  return line;
}

int number_at_front(std::string_view text) {
  int number = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
  return read.ec == std::errc::result_out_of_range ? std::numeric_limits<int>::max() : number;
}

std::string_view file_name_of(std::string_view path) {
  return path.substr(path.rfind('/') + 1);  // npos + 1 is 0: no "/", the whole path
}

std::optional<NameValue> divide_name_equ_value_pair_compat_maybe_loose(std::string_view line,
                                                                       char first) {
  if (first == '=' || is_blank(first)) {
    line.remove_prefix(std::min(line.find_first_not_of("= \t"), line.size()));
  }
  const size_t equals = line.find('=');
  return divide_at(line, equals != std::string_view::npos ? equals : line.find(':'));
}

std::optional<DefaultsEntry> schedule_defaults_name_equ_value_and_clarifier(std::string_view line) {
  const std::optional<NameValue> pair = divide_name_equ_value_pair(line);
  if (!pair) {
    return std::nullopt;
  }
  DefaultsEntry entry{pair->name, pair->value, {}};
  const size_t open = entry.name.rfind('[');
  if (entry.name.back() == ']' && open != std::string_view::npos) {
    entry.clarifier = strip_blanks(entry.name.substr(open + 1, entry.name.size() - open - 2));
    entry.name = strip_blanks(entry.name.substr(0, open));
  }
  if (entry.name.empty()) {
    return std::nullopt;
  }
  return entry;
}
