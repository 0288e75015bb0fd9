#include "platform/media/id3v2_tag.hpp"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace {

constexpr size_t header_size = 10;  // of a tag and of a frame
constexpr size_t id_size = 4;

bool is_id_character(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

/// Checks the flag of version 2.3 and that of version 2.4.
bool is_marked_as_compressed(std::string_view frame) {
  constexpr unsigned flags = 0x80U | 0x08U;
  return (static_cast<unsigned char>(frame[header_size - 1]) & flags) != 0;
}

bool may_be_compressed(std::string_view frame) {
  const std::string_view id = frame.substr(0, id_size);
  // The first byte of a frame's size is 0, because larger tags (16 MiB) are not read here.
  return frame.size() >= header_size && frame[id_size] == '\0' && is_marked_as_compressed(frame) &&
         std::ranges::all_of(id, is_id_character);
}

unsigned byte_at(std::string_view text, size_t place) {
  return static_cast<unsigned char>(text[place]);
}

/// A number of `count` bytes with `bits` bits in each.
size_t number_at(std::string_view text, size_t place, size_t count, unsigned bits) {
  size_t number = 0;
  for (size_t i = 0; i < count; ++i) {
    number = (number << bits) | byte_at(text, place + i);
  }
  return number;
}

/// How the frames of a version are written.
struct FrameForm {
  size_t id_size;
  size_t header_size;
  std::array<std::string_view, 3> not_shown;  ///< pictures, files and private data of programs
  std::string_view genre;
};

constexpr FrameForm short_form = {3, 6, {"PIC", "GEO", ""}, "TCO"};
constexpr FrameForm long_form = {4, 10, {"APIC", "GEOB", "PRIV"}, "TCON"};

int version_of(std::string_view header) {
  return header[3];
}

const FrameForm& form_of(std::string_view header) {
  return version_of(header) == 2 ? short_form : long_form;
}

bool is_frame_id(std::string_view tag, size_t place, const FrameForm& form) {
  const std::string_view id = place < tag.size() ? tag.substr(place, form.id_size) : "";
  return id.size() == form.id_size && std::ranges::all_of(id, is_id_character);
}

/// The size of the frame at `place`, including its header, which must be complete. Nothing when
/// version 2.4 leaves two possible sizes, because some programs write them as in version 2.3.
std::optional<size_t> frame_size(std::string_view tag, size_t place, int version) {
  if (version == 2) {
    return short_form.header_size + number_at(tag, place + 3, 3, 8);
  }
  const size_t plain = long_form.header_size + number_at(tag, place + id_size, 4, 8);
  if (version == 3) {
    return plain;
  }
  const std::string_view bytes = tag.substr(place + id_size, 4);
  const bool is_synchsafe =
      std::ranges::all_of(bytes, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
  const size_t synchsafe = long_form.header_size + number_at(tag, place + id_size, 4, 7);
  const bool fits = is_synchsafe && (place + synchsafe == tag.size() ||
                                     is_frame_id(tag, place + synchsafe, long_form));
  const bool is_last = is_synchsafe && place + synchsafe < tag.size() &&
                       tag[place + synchsafe] == '\0' &&
                       !is_frame_id(tag, place + plain, long_form);
  return fits || is_last ? std::optional(synchsafe) : std::nullopt;
}

/// Whether the frame at the front is a genre list so long that reading it takes too much time.
bool is_long_genre_list(std::string_view frame, const FrameForm& form) {
  constexpr size_t longest = 2048;
  const size_t digits = form.header_size == short_form.header_size ? 3 : 4;
  return frame.size() >= form.id_size + digits &&
         number_at(frame, form.id_size, digits, 8) > longest;
}

}  // namespace

bool is_id3v2_header(std::string_view block) {
  return block.size() == header_size && block.starts_with("ID3");
}

bool id3v2_header_is_unusual(std::string_view header) {
  return header[5] != 0;
}

bool id3v2_may_unfold(std::string_view header, std::string_view tag) {
  constexpr std::string_view chapter_ids[] = {"CHAP", "CTOC"};
  for (const std::string_view id : chapter_ids) {
    if (tag.find(id) != std::string_view::npos) {
      return true;
    }
  }
  const FrameForm& form = form_of(header);
  for (size_t i = tag.find(form.genre); i < tag.size(); i = tag.find(form.genre, i + 1)) {
    if (is_long_genre_list(tag.substr(i), form)) {
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

std::vector<std::string> remove_id3v2_frames(std::string_view header, std::string& tag,
                                             size_t most_bytes) {
  std::vector<std::string> too_large;
  if (id3v2_header_is_unusual(header)) {
    return too_large;
  }
  const FrameForm& form = form_of(header);
  std::string kept;
  size_t place = 0;
  while (is_frame_id(tag, place, form) && tag.size() - place >= form.header_size) {
    const std::optional<size_t> size = frame_size(tag, place, version_of(header));
    if (!size || *size > tag.size() - place) {
      break;
    }
    std::string id = tag.substr(place, form.id_size);
    const bool is_shown = std::ranges::find(form.not_shown, id) == form.not_shown.end();
    if (is_shown && *size <= most_bytes) {
      kept.append(tag, place, *size);
    } else if (is_shown) {
      too_large.push_back(std::move(id));
    }
    place += *size;
  }
  if (kept.size() < place) {
    kept.append(tag, place);
    tag = std::move(kept);
  }
  return too_large;
}
