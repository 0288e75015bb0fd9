#include "platform/syntax/text_encoding.hpp"

#include <iconv.h>

#include <array>
#include <cerrno>
#include <utility>

#include "platform/syntax/utf_8.hpp"

namespace {

struct ByteOrderMark {
  std::string_view bytes;
  const char* encoding;
};

constexpr std::array<ByteOrderMark, 3> marks = {{
    {"\xef\xbb\xbf", ""},
    {"\xff\xfe", "UTF-16LE"},
    {"\xfe\xff", "UTF-16BE"},
}};

/// A conversion of iconv, closed at its end.
class Conversion {
 public:
  explicit Conversion(const char* encoding) : handle_(iconv_open("UTF-8", encoding)) {}
  Conversion(const Conversion&) = delete;
  Conversion& operator=(const Conversion&) = delete;
  ~Conversion() {
    if (is_open()) {
      iconv_close(handle_);
    }
  }

  // NOLINTNEXTLINE(performance-no-int-to-ptr): iconv_open returns this when it fails
  bool is_open() const { return handle_ != iconv_t(-1); }

  /// False at the first bytes that are not valid. What comes before them is in `out` then.
  bool convert(std::string bytes, std::string& out) {
    char* in = bytes.data();
    size_t left = bytes.size();
    std::array<char, 16384> buffer;
    while (left > 0) {
      char* free = buffer.data();
      size_t room = buffer.size();
      const bool failed = iconv(handle_, &in, &left, &free, &room) == size_t(-1);
      const int error = errno;
      out.append(buffer.data(), buffer.size() - room);
      if (failed && error != E2BIG) {
        return false;
      }
    }
    return true;
  }

 private:
  iconv_t handle_;
};

}  // namespace

bool is_known_encoding(const std::string& encoding) {
  return !encoding.empty() && Conversion(encoding.c_str()).is_open();
}

std::optional<std::string> text_as_utf_8(std::string_view bytes, const std::string& encoding,
                                         std::string& valid) {
  std::string from = encoding;
  for (const ByteOrderMark& mark : marks) {
    if (bytes.starts_with(mark.bytes)) {
      bytes.remove_prefix(mark.bytes.size());
      from = mark.encoding;
      break;
    }
  }
  if (from.empty()) {
    const size_t bad = find_no_utf_8(bytes);
    if (bad != std::string_view::npos) {
      valid = bytes.substr(0, bad);
      return std::nullopt;
    }
    return std::string(bytes);
  }
  std::string text;
  if (!Conversion(from.c_str()).convert(std::string(bytes), text)) {
    valid = std::move(text);
    return std::nullopt;
  }
  return text;
}
