#include "platform/standalone/mime_type.hpp"

#include <optional>

#include "platform/standalone/media_type_database.hpp"
#include "platform/syntax/schedule_lines.hpp"
#include "platform/syntax/schedule_types.hpp"
#include "platform/syntax/text.hpp"
#include "platform/system/file.hpp"

namespace {

constexpr size_t head_size = 4 * 1024;
constexpr size_t schedule_head_size = 64 * 1024;

std::string media_type(std::string_view head) {
  std::string known = known_media_type(head);
  return known.empty() ? libmagic_type(head) : known;
}

/// Walks the lines of a schedule's content.
class Lines {
 public:
  explicit Lines(std::string_view content) : rest_(content) {}

  std::optional<std::string_view> next() {
    if (rest_.empty()) {
      return std::nullopt;
    }
    const std::string_view line =
        rest_.substr(0, rest_.find('\n')).substr(0, longest_schedule_line);
    rest_.remove_prefix(line.size());
    if (rest_.starts_with('\n') && line.size() < longest_schedule_line) {
      rest_.remove_prefix(1);
    }
    return schedule_line_text(line);
  }

 private:
  std::string_view rest_;
};

/// Reads a section that does not nest to its end; whether it names an item and its start.
bool read_flat_section(Lines& lines) {
  bool has_item = false;
  bool has_start = false;
  for (auto line = lines.next(); line && !closes_section(*line); line = lines.next()) {
    if (const std::optional<NameValue> pair = divide_name_equ_value_pair(*line)) {
      has_item = has_item || pair->name == "item";
      has_start = has_start || pair->name == "start";
    }
  }
  return has_item && has_start;
}

void skip_nested_section(Lines& lines) {
  int depth = 1;
  for (auto line = lines.next(); line; line = lines.next()) {
    if (closes_section(*line)) {
      --depth;
    } else if (opens_section(*line)) {
      ++depth;
    }
    if (depth == 0) {
      return;
    }
  }
}

}  // namespace

std::optional<std::string> detect_mime_type(int fd) {
  std::string content(head_size, '\0');
  const std::optional<size_t> head_length = read_fully(fd, content.data(), head_size);
  if (!head_length) {
    return std::nullopt;
  }
  content.resize(*head_length);
  if (is_transport_stream(content)) {
    return "video/mp2t";
  }
  const std::string head = content;
  // A NUL byte rules a schedule out, so most media are settled by their head.
  if (content.find('\0') == std::string::npos) {
    if (content.size() == head_size) {
      content.resize(schedule_head_size);
      const std::optional<size_t> length =
          read_fully(fd, content.data() + head_size, schedule_head_size - head_size);
      if (!length) {
        return std::nullopt;
      }
      content.resize(head_size + *length);
    }
    const std::string_view schedule = sniff_schedule(content);
    if (!schedule.empty()) {
      return std::string(schedule);
    }
  }
  return media_type(head);
}

std::string_view sniff_schedule(std::string_view content) {
  if (content.find('\0') != std::string_view::npos) {
    return {};
  }
  Lines lines(content);
  bool in_front_of_sections = true;
  bool has_item = false;
  for (auto text = lines.next(); text; text = lines.next()) {
    const ScheduleLine line = classify_schedule_line(*text);
    if (line.kind == ScheduleLineKind::type && in_front_of_sections) {
      const ScheduleType* type = find_schedule_type(line.text);
      if (type != nullptr && !type->mime_type.empty()) {
        return type->mime_type;
      }
    } else if (line.kind == ScheduleLineKind::section) {
      in_front_of_sections = false;
      if (const ScheduleType* type = find_schedule_type_of_section(line.text)) {
        return type->mime_type;
      }
      if (line.text.empty()) {
        has_item = read_flat_section(lines) || has_item;
      } else if (line.text == "schedule block") {
        read_flat_section(lines);
      } else {
        skip_nested_section(lines);
      }
    }
  }
  return has_item ? find_schedule_type(default_schedule_type)->mime_type : std::string_view();
}

bool is_transport_stream(std::string_view content) {
  constexpr char sync_byte = 0x47;
  constexpr size_t packet_size = 188;
  return content.size() > 2 * packet_size && content[0] == sync_byte &&
         content[packet_size] == sync_byte && content[2 * packet_size] == sync_byte;
}
