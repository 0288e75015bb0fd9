#include "platform/syntax/schedule_lines.hpp"

#include "platform/syntax/text.hpp"

std::string_view schedule_line_text(std::string_view line) {
  chomp(line);
  return skip_blanks(line);
}

bool opens_section(std::string_view text) {
  return text.ends_with('{') && text.find('=') == std::string_view::npos;
}

bool closes_section(std::string_view text) {
  return text.starts_with('}');
}

ScheduleLine classify_schedule_line(std::string_view text) {
  if (text.empty() || text.front() == '#') {
    return {ScheduleLineKind::comment, text};
  }
  if (text.front() == '*') {
    return {ScheduleLineKind::type, text.substr(1)};
  }
  if (opens_section(text)) {
    std::string_view name = text.substr(0, text.size() - 1);
    while (name.ends_with(' ')) {
      name.remove_suffix(1);
    }
    return {ScheduleLineKind::section, name};
  }
  return {ScheduleLineKind::name_value, text};
}
