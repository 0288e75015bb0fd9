#include "platform/media/mp4_parts.hpp"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string_view>

namespace {

constexpr size_t short_head = 8;  // of a box: its size and its name (ISO/IEC 14496-12)
constexpr size_t long_head = 16;  // followed by a size of 64 bits
constexpr size_t name_place = 4;

/// Reads heads of boxes in ascending order. Heads that are close together are read together.
class HeadReader {
 public:
  HeadReader(MediaSource& source, size_t reads) : source_(source), reads_left_(reads) {}

  /// Up to 16 bytes at `place`, fewer at the end of the file. Nothing on failure; see outcome().
  std::optional<std::string_view> head_at(long place) {
    const long end = start_ + static_cast<long>(bytes_.size());
    if (place + static_cast<long>(long_head) > end && !fill(place)) {
      return std::nullopt;
    }
    return bytes_.substr(static_cast<size_t>(place - start_), long_head);
  }

  /// `read`, or the reason why it cannot read on.
  TagsOutcome outcome() const { return outcome_; }

 private:
  bool fill(long place) {
    if (reads_left_ == 0) {
      outcome_ = TagsOutcome::spent;
      return false;
    }
    --reads_left_;
    const std::optional<std::string_view> page = source_.page_at(place);  // as fast as a head
    outcome_ = page ? outcome_ : TagsOutcome::failed;
    bytes_ = page.value_or(std::string_view());
    start_ = place;
    return page.has_value();
  }

  MediaSource& source_;
  size_t reads_left_;
  std::string_view bytes_;
  long start_ = 0;
  TagsOutcome outcome_ = TagsOutcome::read;
};

uint64_t number_at(std::string_view bytes, size_t place, size_t count) {
  uint64_t number = 0;
  for (const char byte : bytes.substr(place, count)) {
    number = (number << 8U) | static_cast<unsigned char>(byte);
  }
  return number;
}

/// The size of a box with its head, or 0 when the head is not valid. `left` is the number of bytes
/// from the box's beginning to the end of the file.
long box_size(std::string_view head, long left) {
  if (head.size() < short_head) {
    return 0;
  }
  uint64_t size = number_at(head, 0, name_place);
  if (size == 0) {  // the last box, which extends to the end of the file
    return left;
  }
  if (size == 1) {
    size = head.size() < long_head ? 0 : number_at(head, short_head, sizeof(size));
  }
  return size < short_head || size > static_cast<uint64_t>(left) ? 0 : static_cast<long>(size);
}

}  // namespace

Mp4Parts find_mp4_parts(MediaSource& source, size_t reads) {
  const long length = source.length();
  Mp4Parts found;
  HeadReader reader(source, reads);
  long size = 0;
  for (long place = 0; place < length; place += size) {
    const std::optional<std::string_view> head = reader.head_at(place);
    if (!head) {
      return {reader.outcome(), {}};
    }
    size = box_size(*head, length - place);
    if (size == 0) {
      break;
    }
    const std::string_view name = head->substr(name_place, short_head - name_place);
    const bool is_movie = name == "moov";
    if (is_movie || (name == "ftyp" && place == 0)) {
      found.parts.push_back({place, size});
    }
    if (is_movie) {
      break;
    }
  }
  return found;
}

bool mp4_tags_end_within(const MediaSource& source, long most_bytes) {
  const std::string_view head = source.head();
  long size = 0;
  for (long place = 0; place < source.length(); place += size) {
    const long left = source.length() - place;
    if (left <= most_bytes) {
      return true;
    }
    if (place + static_cast<long>(long_head) > static_cast<long>(head.size())) {
      return false;
    }
    const std::string_view box = head.substr(static_cast<size_t>(place), long_head);
    size = box_size(box, left);
    if (size == 0) {
      return true;  // nothing is looked for behind it
    }
    if (box.substr(name_place).starts_with("moov")) {
      return size <= most_bytes;
    }
  }
  return true;
}

bool is_mp4_head(std::string_view head) {
  return head.substr(std::min(head.size(), name_place)).starts_with("ftyp");
}

void make_mp4_texts_whole(char* block, size_t size) {
  constexpr std::string_view text_head("data\0\0\0\1", 8);  // after the size: name and kind
  constexpr size_t text_place = 16;
  const std::string_view bytes(block, size);
  for (size_t place = 0, box = 0; size - place >= text_place; place += box) {
    box = number_at(bytes, place, name_place);
    if (box < short_head || box > size - place) {
      break;
    }
    if (box > text_place && bytes.substr(place + name_place).starts_with(text_head)) {
      const size_t last = bytes.substr(place + text_place, box - text_place).find_last_not_of('\0');
      char* text = block + place + text_place;
      std::replace(text, text + (last == std::string_view::npos ? 0 : last), '\0', ' ');
    }
  }
}
