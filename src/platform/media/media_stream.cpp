#include "platform/media/media_stream.hpp"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include "platform/media/id3v2_tag.hpp"

namespace {

constexpr size_t buffer_size = 8 * 1024;

/// Smaller pictures are read like anything else.
constexpr size_t shortest_picture = 4 * 1024;
constexpr StreamOffset picture_head_size = 4;

/// Whether the bytes before a block show that the block is a picture.
PictureKind picture_behind(std::string_view before, size_t block_size, bool is_mp4) {
  if (is_mp4) {
    return before == "covr" ? PictureKind::may_be_short : PictureKind::none;
  }
  if (before.size() < picture_head_size) {
    return PictureKind::none;
  }
  // The head of a FLAC metadata block: its kind, with a bit for the last block, and its size.
  constexpr unsigned padding = 1;
  constexpr unsigned picture = 6;
  const auto byte = [&](size_t place) { return static_cast<unsigned char>(before[place]); };
  const unsigned kind = byte(0) & 0x7fU;
  const size_t size = (size_t{byte(1)} << 16U) | (size_t{byte(2)} << 8U) | byte(3);
  return (kind == padding || kind == picture) && size == block_size ? PictureKind::must_be_whole
                                                                    : PictureKind::none;
}

}  // namespace

MediaStream::MediaStream(MediaSource& source, std::string name, const ReadBudget& budget)
    : source_(source),
      name_(std::move(name)),
      left_(budget),
      parts_({{0, source.length()}}),
      length_(source.length()) {
}

void MediaStream::show_mp4_parts() {
  Mp4Parts found = find_mp4_parts(source_, left_.box_reads);
  is_mp4_ = true;
  has_failed_ = has_failed_ || found.outcome == TagsOutcome::failed;
  is_spent_ = is_spent_ || found.outcome == TagsOutcome::spent;
  parts_ = std::move(found.parts);
  length_ = 0;
  for (const FilePart& part : parts_) {
    length_ += part.size;
  }
  buffer_.clear();
  position_ = 0;
}

/// Reads from an offset in the file as the library sees it.
size_t MediaStream::read_at(char* bytes, size_t size, StreamOffset offset) {
  size_t total = 0;
  StreamOffset part_offset = 0;
  for (const FilePart& part : parts_) {
    const StreamOffset begin = offset + static_cast<StreamOffset>(total) - part_offset;
    part_offset += part.size;
    if (begin >= part.size || total == size) {
      continue;
    }
    const size_t wanted = std::min(size - total, static_cast<size_t>(part.size - begin));
    const std::optional<size_t> count = source_.read_at(bytes + total, wanted, part.start + begin);
    has_failed_ = has_failed_ || !count;
    total += count.value_or(0);
    if (count != wanted) {
      break;
    }
  }
  return total;
}

TagLib::FileName MediaStream::name() const {
  return name_.c_str();
}

size_t MediaStream::bytes_left() const {
  return static_cast<size_t>(std::max<StreamOffset>(length_ - position_, 0));
}

/// Subtracts the amount from a budget. If the budget is too small, it is spent.
bool MediaStream::spend(size_t& budget, size_t amount) {
  is_spent_ = is_spent_ || amount > budget;
  budget -= is_spent_ ? 0 : amount;
  return !is_spent_;
}

TagLib::ByteVector MediaStream::readBlock(StreamSize length) {
  // A damaged file may ask for more than there is.
  const size_t wanted = std::min(static_cast<size_t>(length), bytes_left());
  const std::string id3v2_header = std::exchange(id3v2_header_, {});
  if (!spend(left_.reads, 1)) {
    return {};
  }
  // The size of a tag may be any bytes, even those that mark a picture.
  if (!id3v2_header.empty()) {
    return read_id3v2_tag(id3v2_header, wanted);
  }
  const PictureKind picture = wanted >= shortest_picture
                                  ? picture_behind(bytes_before(), wanted, is_mp4_)
                                  : PictureKind::none;
  if (picture != PictureKind::none) {
    return pass_over(wanted, picture);
  }
  if (is_mp4_ && wanted > largest_tag) {
    return leave_out_mp4_item(wanted);
  }
  if (!spend(left_.bytes, wanted)) {
    return {};
  }
  TagLib::ByteVector block = read_within_file(wanted);
  if (is_mp4_) {
    make_mp4_texts_whole(block.data(), block.size());
  }
  const std::string_view bytes(block.data(), block.size());
  if (is_id3v2_header(bytes)) {
    if (!left_.risks && id3v2_header_is_unusual(bytes)) {
      is_spent_ = true;
      return {};
    }
    id3v2_header_ = bytes;
  }
  return block;
}

/// The bytes before the position, as many as are needed to recognise a picture.
std::string MediaStream::bytes_before() {
  std::string bytes(static_cast<size_t>(std::min(picture_head_size, position_)), '\0');
  bytes.resize(
      read_at(bytes.data(), bytes.size(), position_ - static_cast<StreamOffset>(bytes.size())));
  return bytes;
}

/// Skips the content of a box. The library reads such large blocks only there.
TagLib::ByteVector MediaStream::leave_out_mp4_item(size_t size) {
  add_left_out(left_out_, bytes_before());
  position_ += static_cast<StreamOffset>(size);
  return {};
}

/// A picture without its content: no bytes or, if the library needs the full length, zeroes.
TagLib::ByteVector MediaStream::pass_over(size_t size, PictureKind kind) {
  position_ += static_cast<StreamOffset>(size);
  if (kind == PictureKind::may_be_short) {
    return {};
  }
  return spend(left_.pictures, size) ? TagLib::ByteVector(static_cast<unsigned>(size), '\0')
                                     : TagLib::ByteVector();
}

/// A tag without its pictures. The rest must not need more memory than its size suggests.
TagLib::ByteVector MediaStream::read_id3v2_tag(std::string_view header, size_t size) {
  if (size > left_.bytes + left_.pictures) {
    is_spent_ = true;
    return {};
  }
  std::string tag(size, '\0');
  tag.resize(read_at(tag.data(), size, position_));
  position_ += static_cast<StreamOffset>(tag.size());
  const size_t whole_size = tag.size();
  for (const std::string& id : remove_id3v2_frames(header, tag, largest_tag)) {
    add_left_out(left_out_, id);
  }
  if (!spend(left_.pictures, whole_size - tag.size()) || !spend(left_.bytes, tag.size())) {
    return {};
  }
  if (!left_.risks && id3v2_may_unfold(header, tag)) {
    is_spent_ = true;
    return {};
  }
  return {tag.data(), static_cast<unsigned>(tag.size())};
}

TagLib::ByteVector MediaStream::read_within_file(size_t wanted) {
  if (wanted > buffer_size) {
    TagLib::ByteVector block(static_cast<unsigned>(wanted), '\0');
    block.resize(static_cast<unsigned>(read_at(block.data(), wanted, position_)));
    position_ += static_cast<StreamOffset>(block.size());
    return block;
  }
  const StreamOffset buffer_end = buffer_start_ + static_cast<StreamOffset>(buffer_.size());
  if (position_ < buffer_start_ || position_ + static_cast<StreamOffset>(wanted) > buffer_end) {
    // Do not ask for more than there is: finding the end of the file would need another read.
    buffer_.resize(std::min(buffer_size, bytes_left()));
    buffer_.resize(read_at(buffer_.data(), buffer_.size(), position_));
    buffer_start_ = position_;
  }
  const auto begin = static_cast<size_t>(position_ - buffer_start_);
  const size_t count = std::min(wanted, buffer_.size() - begin);
  position_ += static_cast<StreamOffset>(count);
  return {buffer_.data() + begin, static_cast<unsigned>(count)};
}

void MediaStream::writeBlock(const TagLib::ByteVector& /*data*/) {
}

void MediaStream::insert(const TagLib::ByteVector& /*data*/, StreamStart /*start*/,
                         StreamSize /*replace*/) {
}

void MediaStream::removeBlock(StreamStart /*start*/, StreamSize /*length*/) {
}

bool MediaStream::readOnly() const {
  return true;
}

bool MediaStream::isOpen() const {
  return true;
}

void MediaStream::seek(StreamOffset offset, Position from) {
  StreamOffset start = 0;
  if (from == Current) {
    start = position_;
  } else if (from == End) {
    start = length_;
  }
  if (start + offset >= 0) {
    position_ = start + offset;
  }
}

void MediaStream::clear() {
}

StreamOffset MediaStream::tell() const {
  return position_;
}

StreamOffset MediaStream::length() {
  return length_;
}

void MediaStream::truncate(StreamOffset /*length*/) {
}
