#include "platform/standalone/media_stream.hpp"

#include <sys/stat.h>

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include "platform/file.hpp"
#include "platform/standalone/id3v2_hazards.hpp"

namespace {

constexpr size_t buffer_size = 8 * 1024;

}  // namespace

MediaStream::MediaStream(int fd, std::string name, const ReadBudget& budget)
    : fd_(fd), name_(std::move(name)), left_(budget) {
  struct stat status {};
  if (fstat(fd, &status) == 0) {
    length_ = status.st_size;
  } else {
    has_failed_ = true;
  }
}

size_t MediaStream::read_at(char* bytes, size_t size, long offset) {
  const std::optional<size_t> count = read_fully_at(fd_, bytes, size, offset);
  has_failed_ = has_failed_ || !count;
  return count.value_or(0);
}

TagLib::FileName MediaStream::name() const {
  return name_.c_str();
}

TagLib::ByteVector MediaStream::readBlock(unsigned long length) {
  // A damaged file may ask for more than there is.
  const long left = std::max(length_ - position_, 0L);
  const auto wanted = static_cast<size_t>(std::min(length, static_cast<unsigned long>(left)));
  if (is_spent_ || left_.reads == 0 || wanted > left_.bytes) {
    is_spent_ = true;
    return {};
  }
  --left_.reads;
  left_.bytes -= wanted;
  const TagLib::ByteVector block = read_within_file(wanted);
  if (!left_.risks && unfolds(block)) {
    is_spent_ = true;
    return {};
  }
  return block;
}

/// Whether a block is an ID3v2 tag, by the header read before it, that may unfold in memory.
bool MediaStream::unfolds(const TagLib::ByteVector& block) {
  const bool is_tag = std::exchange(id3v2_follows_, false);
  const std::string_view bytes(block.data(), block.size());
  if (is_id3v2_header(bytes)) {
    id3v2_follows_ = true;
    return id3v2_header_is_unusual(bytes);
  }
  return is_tag && id3v2_may_unfold(bytes);
}

TagLib::ByteVector MediaStream::read_within_file(size_t wanted) {
  if (wanted > buffer_size) {
    TagLib::ByteVector block(static_cast<unsigned>(wanted), '\0');
    block.resize(static_cast<unsigned>(read_at(block.data(), wanted, position_)));
    position_ += static_cast<long>(block.size());
    return block;
  }
  const long buffer_end = buffer_start_ + static_cast<long>(buffer_.size());
  if (position_ < buffer_start_ || position_ + static_cast<long>(wanted) > buffer_end) {
    // No more than there is: the end of the file needs no read of its own.
    const auto left = static_cast<size_t>(std::max(length_ - position_, 0L));
    buffer_.resize(std::min(buffer_size, left));
    buffer_.resize(read_at(buffer_.data(), buffer_.size(), position_));
    buffer_start_ = position_;
  }
  const auto begin = static_cast<size_t>(position_ - buffer_start_);
  const size_t count = std::min(wanted, buffer_.size() - begin);
  position_ += static_cast<long>(count);
  return {buffer_.data() + begin, static_cast<unsigned>(count)};
}

void MediaStream::writeBlock(const TagLib::ByteVector& /*data*/) {
}

void MediaStream::insert(const TagLib::ByteVector& /*data*/, unsigned long /*start*/,
                         unsigned long /*replace*/) {
}

void MediaStream::removeBlock(unsigned long /*start*/, unsigned long /*length*/) {
}

bool MediaStream::readOnly() const {
  return true;
}

bool MediaStream::isOpen() const {
  return true;
}

void MediaStream::seek(long offset, Position from) {
  long start = 0;
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

long MediaStream::tell() const {
  return position_;
}

long MediaStream::length() {
  return length_;
}

void MediaStream::truncate(long /*length*/) {
}
