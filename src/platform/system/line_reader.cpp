#include "platform/system/line_reader.hpp"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

namespace {

constexpr size_t buffer_size = 64 * 1024;

}  // namespace

LineReader::LineReader(FileDescriptor file, size_t longest_piece)
    : file_(std::move(file)),
      longest_piece_(longest_piece),
      buffer_size_(std::max(buffer_size, longest_piece)),
      buffer_(std::make_unique_for_overwrite<char[]>(buffer_size_)),
      bytes_(buffer_.get()) {
}

LineReader::LineReader(std::string_view text, size_t longest_piece)
    : longest_piece_(longest_piece),
      bytes_(text.data()),
      end_(text.size()),
      at_end_(true),
      has_nul_(text.find('\0') != std::string_view::npos) {
}

bool LineReader::refill() {
  if (at_end_) {
    return false;
  }
  std::memmove(buffer_.get(), buffer_.get() + begin_, end_ - begin_);
  end_ -= begin_;
  begin_ = 0;
  const std::optional<size_t> count =
      read_some(file_.get(), buffer_.get() + end_, buffer_size_ - end_);
  error_ = count ? 0 : errno;
  end_ = count ? end_ + *count : 0;
  at_end_ = count.value_or(0) == 0;
  has_nul_ = std::string_view(buffer_.get(), end_).find('\0') != std::string_view::npos;
  return true;
}
