#include "platform/standalone/id3v2_hazards.hpp"

#include <algorithm>

namespace {

constexpr size_t header_size = 10;  // of a tag and of a frame alike
constexpr size_t id_size = 4;

bool is_id_character(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

/// The flag of version 2.3 or that of version 2.4.
bool is_marked_as_compressed(std::string_view frame) {
  constexpr unsigned flags = 0x80U | 0x08U;
  return (static_cast<unsigned char>(frame[header_size - 1]) & flags) != 0;
}

bool may_be_compressed(std::string_view frame) {
  const std::string_view id = frame.substr(0, id_size);
  // The first byte of its size is 0, as no tag is looked at here that has 16 MiB.
  return frame.size() >= header_size && frame[id_size] == '\0' && is_marked_as_compressed(frame) &&
         std::all_of(id.begin(), id.end(), is_id_character);
}

}  // namespace

bool is_id3v2_header(std::string_view block) {
  return block.size() == header_size && block.starts_with("ID3");
}

bool id3v2_header_is_unusual(std::string_view header) {
  return header[5] != 0;
}

bool id3v2_may_unfold(std::string_view tag) {
  constexpr std::string_view chapter_ids[] = {"CHAP", "CTOC"};
  for (const std::string_view id : chapter_ids) {
    if (tag.find(id) != std::string_view::npos) {
      return true;
    }
  }
  for (size_t i = tag.find('\0', id_size); i < tag.size(); i = tag.find('\0', i + 1)) {
    if (may_be_compressed(tag.substr(i - id_size))) {
      return true;
    }
  }
  return false;
}
