#pragma once

#include <optional>
#include <string>
#include <string_view>

// The text functions of the playout system. All of them work on bytes; blanks are spaces and tabs.
// The returned views point into the given text.

struct NameValue {
  std::string_view name;
  std::string_view value;
};

struct DefaultsEntry {
  std::string_view name;
  std::string_view value;
  std::string_view clarifier;  ///< text of a `[clarifier]` after the name, or empty
};

constexpr bool is_blank(char c) {
  return c == ' ' || c == '\t';
}

constexpr bool is_digit(char c) {
  return c >= '0' && c <= '9';
}

/// The byte in lower case, as in the "C" locale: only A to Z change.
constexpr char to_lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// The byte in upper case, as in the "C" locale: only a to z change.
constexpr char to_upper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

std::string lower_case(std::string_view text);
std::string upper_case(std::string_view text);

constexpr std::string_view skip_blanks(std::string_view text) {
  while (!text.empty() && is_blank(text.front())) {
    text.remove_prefix(1);
  }
  return text;
}

/// The text without the blanks at both ends; other white space stays.
constexpr std::string_view strip_blanks(std::string_view text) {
  text = skip_blanks(text);
  while (!text.empty() && is_blank(text.back())) {
    text.remove_suffix(1);
  }
  return text;
}

/// Removes all line feeds and carriage returns from the end of the line.
constexpr void chomp(std::string_view& line) {
  while (!line.empty() && (line.back() == '\n' || line.back() == '\r')) {
    line.remove_suffix(1);
  }
}

inline void chomp(std::string& line) {
  std::string_view text = line;
  chomp(text);
  line.resize(text.size());
}

/// Removes the first line from the text, which must not be empty, and returns it without its line
/// end.
std::string_view take_line(std::string_view& text);

/// The number that the digits at the front of the text write; 0 without any, and the largest number
/// if they write a larger one.
int number_at_front(std::string_view text);

/// The text after the last "/", or the whole text when it has none.
std::string_view file_name_of(std::string_view path);

/// Splits a line at a separator and strips blanks from both sides. Nothing when the separator is
/// npos or a side is empty.
constexpr std::optional<NameValue> divide_at(std::string_view line, size_t separator) {
  if (separator == std::string_view::npos) {
    return std::nullopt;
  }
  const NameValue pair{strip_blanks(line.substr(0, separator)),
                       strip_blanks(line.substr(separator + 1))};
  if (pair.name.empty() || pair.value.empty()) {
    return std::nullopt;
  }
  return pair;
}

/// Splits "name = value" at the first "=". Inline, because most lines of large schedules have this
/// form.
inline std::optional<NameValue> divide_name_equ_value_pair(std::string_view line) {
  return divide_at(line, line.find('='));
}

/// The same for top-level lines of a schedule file. Older files write them as "=name=value" or
/// "name: value". `first` is the line's first character.
std::optional<NameValue> divide_name_equ_value_pair_compat_maybe_loose(std::string_view line,
                                                                       char first);

/// The same for lines of a defaults section, "name [clarifier] = value".
std::optional<DefaultsEntry> schedule_defaults_name_equ_value_and_clarifier(std::string_view line);
