#include "checks/line_fix.hpp"

#include <algorithm>

#include "platform/syntax/text.hpp"

namespace {

/// The line that begins there, without its line end.
std::string_view line_at(std::string_view content, size_t begin) {
  std::string_view line = content.substr(begin, content.find('\n', begin) - begin);
  chomp(line);
  return line;
}

/// The line with the '}' that closes the section of the value.
LineFix closing_line(const WrittenSchedule& written, const WrittenValue& value) {
  const std::string_view content = written.content;
  LineFix found{value.place.line, {}};
  auto at = static_cast<size_t>(value.text.data() - content.data());
  while ((at = content.find('\n', at)) != std::string_view::npos) {
    ++at;
    ++found.line;
    const std::string_view line = line_at(content, at);
    if (closes_section(skip_blanks(line))) {
      found.text = line;
      break;
    }
  }
  return found;
}

}  // namespace

LineFix line_with(std::string_view content, int64_t line, std::string_view piece,
                  std::string_view replacement) {
  const auto begin = static_cast<size_t>(piece.data() - content.data());
  const size_t line_begin = content.substr(0, begin).rfind('\n') + 1;  // 0 if there is none
  const std::string_view whole = line_at(content, line_begin);
  std::string text(whole.substr(0, begin - line_begin));
  text += replacement;
  text += whole.substr(std::min(whole.size(), begin - line_begin + piece.size()));
  return {line, std::move(text)};
}

LineFix line_with(const SchedulePart& part, std::string_view piece, std::string_view replacement) {
  const auto begin = static_cast<size_t>(piece.data() - part.text.data());
  std::string text(static_cast<size_t>(part.column - 1), ' ');
  text += part.text.substr(0, begin);
  text += replacement;
  text += part.text.substr(begin + piece.size());
  return {part.line, std::move(text)};
}

LineFix line_with(const WrittenSchedule& written, const WrittenValue& value,
                  std::string_view replacement) {
  return line_with(written.content, value.place.line, value.text, replacement);
}

std::vector<LineFix> two_sections(const WrittenSchedule& written, const WrittenSection& section,
                                  bool is_block, std::string_view first_end,
                                  std::string_view second_start, std::string_view second_end) {
  const WrittenValue* end = section.value_of(ScheduleKey::end);
  LineFix closing = end != nullptr ? closing_line(written, *end) : LineFix();
  if (closing.text.empty()) {
    return {};
  }
  closing.text += is_block ? "\nschedule block {" : "\n{";
  for (const WrittenValue& value : section.values) {
    std::string_view text = value.text;
    if (value.key->key == ScheduleKey::start) {
      text = second_start;
    } else if (value.key->key == ScheduleKey::end) {
      text = second_end;
    }
    closing.text += "\n  " + std::string(value.key->name) + " = " + std::string(text);
  }
  closing.text += "\n}";
  return {line_with(written, *end, first_end), std::move(closing)};
}
