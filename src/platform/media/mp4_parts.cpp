#include "platform/media/mp4_parts.hpp"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/system/file.hpp"

namespace {

constexpr size_t short_head = 8;  // of a box: its size and its name (ISO/IEC 14496-12)
constexpr size_t long_head = 16;  // followed by a size of 64 bits
constexpr size_t name_place = 4;

/// Reads heads of boxes in ascending order. Heads that are close together are read together.
class HeadReader {
 public:
  HeadReader(int fd, size_t reads) : fd_(fd), reads_left_(reads) {}

  /// Up to 16 bytes at `place`, fewer at the end of the file. Nothing on failure; see outcome().
  std::optional<std::string_view> head_at(long place) {
    const long end = start_ + static_cast<long>(bytes_.size());
    if (place + static_cast<long>(long_head) > end && !fill(place)) {
      return std::nullopt;
    }
    return std::string_view(bytes_).substr(static_cast<size_t>(place - start_), long_head);
  }

  /// `read`, or the reason why it cannot read on.
  TagsOutcome outcome() const { return outcome_; }

 private:
  bool fill(long place) {
    constexpr size_t page = 4096;  // as fast to read as a head
    if (reads_left_ == 0) {
      outcome_ = TagsOutcome::spent;
      return false;
    }
    --reads_left_;
    bytes_.resize(page);
    start_ = place;
    const std::optional<size_t> count = read_fully_at(fd_, bytes_.data(), bytes_.size(), place);
    outcome_ = count ? outcome_ : TagsOutcome::failed;
    bytes_.resize(count.value_or(0));
    return count.has_value();
  }

  int fd_;
  size_t reads_left_;
  std::string bytes_;
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

Mp4Parts find_mp4_parts(int fd, long length, size_t reads) {
  Mp4Parts found;
  HeadReader reader(fd, reads);
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
