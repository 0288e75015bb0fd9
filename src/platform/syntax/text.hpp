#pragma once

#include <optional>
#include <string>
#include <string_view>

// The playout system's text helpers. All of them work on bytes; blanks are spaces and tabs.
// The views they return point into the text they were given.

struct NameValue {
  std::string_view name;
  std::string_view value;
};

struct DefaultsEntry {
  std::string_view name;
  std::string_view value;
  std::string_view clarifier;  ///< text of a `[clarifier]` behind the name, or empty
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

/// Takes every trailing line feed and carriage return off the line, in place.
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

/// Takes the first line off the text, which is not empty, and gives it without its line end.
std::string_view take_line(std::string_view& text);

/// The text behind the last "/", or the whole text when it holds none.
std::string_view file_name_of(std::string_view path);

/// Splits a line at a separator, blanks around both sides removed. Nothing when the separator is
/// nowhere (npos) or a side is empty.
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

/// Splits "name = value" at the first "=". Inline, as the most lines of large schedules are such.
inline std::optional<NameValue> divide_name_equ_value_pair(std::string_view line) {
  return divide_at(line, line.find('='));
}

/// The same for top-level lines of a schedule file, which older files write as "=name=value" or
/// "name: value". `first` is the line's first character.
std::optional<NameValue> divide_name_equ_value_pair_compat_maybe_loose(std::string_view line,
                                                                       char first);

/// The same for lines of a defaults section, "name [clarifier] = value".
std::optional<DefaultsEntry> schedule_defaults_name_equ_value_and_clarifier(std::string_view line);
