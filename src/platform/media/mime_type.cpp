#include "platform/media/mime_type.hpp"

#include <optional>

#include "platform/media/media_type_database.hpp"
#include "platform/syntax/schedule_file.hpp"
#include "platform/syntax/schedule_types.hpp"

namespace {

constexpr size_t schedule_head_size = 64 * 1024;

std::string media_type(std::string_view head) {
  std::string known = known_media_type(head);
  return known.empty() ? libmagic_type(head) : known;
}

bool is_entry_of(const SchedulePart& part, ScheduleKey key) {
  return part.key != nullptr && part.key->key == key;
}

}  // namespace

std::optional<std::string> detect_mime_type(const MediaSource& source) {
  const std::string& head = source.head();
  if (is_transport_stream(head)) {
    return "video/mp2t";
  }
  // A schedule has no NUL bytes, so for most media the head is enough.
  if (head.find('\0') == std::string::npos) {
    std::string content = head;
    if (head.size() == MediaSource::page_size) {
      content.resize(schedule_head_size);
      const std::optional<size_t> length = source.read_at(content.data(), content.size(), 0);
      if (!length) {
        return std::nullopt;
      }
      content.resize(*length);
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
  ScheduleFile file(content);
  bool in_front_of_sections = true;
  bool has_airing = false;  // an item's section with an item and a start
  bool has_item = false;
  bool has_start = false;
  for (SchedulePart part; file.next(part);) {
    if (part.kind == PartKind::type && in_front_of_sections) {
      const ScheduleType* type = find_schedule_type(part.name);
      if (type != nullptr && !type->mime_type.empty()) {
        return type->mime_type;
      }
    } else if (part.kind == PartKind::section_begin) {
      in_front_of_sections = false;
      has_item = has_start = false;
      if (const ScheduleType* type = find_schedule_type_of_section(part.name)) {
        return type->mime_type;
      }
    } else if (part.kind == PartKind::entry && part.section == SectionKind::item) {
      has_item = has_item || is_entry_of(part, ScheduleKey::item);
      has_start = has_start || is_entry_of(part, ScheduleKey::start);
      has_airing = has_airing || (has_item && has_start);
    }
  }
  return has_airing ? find_schedule_type(default_schedule_type)->mime_type : std::string_view();
}

bool is_transport_stream(std::string_view content) {
  constexpr char sync_byte = 0x47;
  constexpr size_t packet_size = 188;
  return content.size() > 2 * packet_size && content[0] == sync_byte &&
         content[packet_size] == sync_byte && content[2 * packet_size] == sync_byte;
}
