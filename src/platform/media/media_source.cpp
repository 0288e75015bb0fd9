#include "platform/media/media_source.hpp"

#include <fcntl.h>

#include <algorithm>

#include "platform/system/file.hpp"

namespace {

/// Copies what a kept part of the file has of the bytes from `offset` on. Returns their number.
size_t copy_kept(const std::string& kept, long start, char* bytes, size_t size, long offset) {
  const long place = offset - start;
  if (place < 0 || place >= static_cast<long>(kept.size())) {
    return 0;
  }
  return kept.copy(bytes, size, static_cast<size_t>(place));
}

}  // namespace

bool MediaSource::read_head() {
  const bool is_longer = length_ > static_cast<long>(page_size);
  if (is_longer) {
    // The reads are few and far apart. Without this the system would read many pages around each.
    // If it fails, the reads are only slower.
    posix_fadvise(fd_, 0, 0, POSIX_FADV_RANDOM);
  }
  // Some file systems say 0 for a file that has bytes.
  head_.resize(is_longer || length_ == 0 ? page_size : static_cast<size_t>(length_));
  const std::optional<size_t> count = read_fully_at(fd_, head_.data(), head_.size(), 0);
  head_.resize(count.value_or(0));
  return count.has_value();
}

std::optional<std::string_view> MediaSource::page_at(long offset) {
  if (offset == 0) {
    return head_;
  }
  const long left = std::max(length_ - offset, 0L);
  std::string page(std::min(page_size, static_cast<size_t>(left)), '\0');
  const std::optional<size_t> count = read_at(page.data(), page.size(), offset);
  if (!count) {
    return std::nullopt;
  }
  page.resize(*count);
  page_.swap(page);
  page_start_ = offset;
  return page_;
}

std::optional<size_t> MediaSource::read_at(char* bytes, size_t size, long offset) const {
  size_t done = copy_kept(head_, 0, bytes, size, offset);
  done +=
      copy_kept(page_, page_start_, bytes + done, size - done, offset + static_cast<long>(done));
  if (done == size) {
    return size;
  }
  const std::optional<size_t> rest =
      read_fully_at(fd_, bytes + done, size - done, offset + static_cast<long>(done));
  return rest ? std::optional(done + *rest) : std::nullopt;
}
