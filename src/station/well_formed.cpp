#include "station/well_formed.hpp"

#include <expat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <functional>
#include <memory>
#include <string_view>

#include "platform/syntax/utf_8.hpp"
#include "platform/system/file.hpp"

namespace {

/// Passes the text piece by piece. Stops when `take` returns false. False, with errno set, when the
/// file cannot be read.
bool for_each_piece(int file, uint64_t offset, uint64_t bytes,
                    const std::function<bool(std::string_view piece, bool is_last)>& take) {
  constexpr uint64_t longest_piece = 256UL * 1024;
  std::string buffer(std::min(bytes, longest_piece), '\0');
  for (uint64_t left = bytes; left > 0;) {
    const auto wanted = static_cast<size_t>(std::min<uint64_t>(left, buffer.size()));
    errno = EIO;
    if (read_fully_at(file, buffer.data(), wanted, static_cast<long>(offset)) != wanted) {
      return false;
    }
    offset += wanted;
    left -= wanted;
    if (!take(std::string_view(buffer).substr(0, wanted), left == 0)) {
      return true;
    }
  }
  return true;
}

std::string complaint_about_xml(int file, uint64_t offset, uint64_t bytes) {
  const std::unique_ptr<XML_ParserStruct, void (*)(XML_Parser)> parser(XML_ParserCreate(nullptr),
                                                                       XML_ParserFree);
  std::string complaint = bytes == 0 ? "the document is empty" : "";
  const bool is_read =
      for_each_piece(file, offset, bytes, [&](std::string_view piece, bool is_last) {
        if (XML_Parse(parser.get(), piece.data(), static_cast<int>(piece.size()),
                      is_last ? XML_TRUE : XML_FALSE) == XML_STATUS_OK) {
          return true;
        }
        complaint = "the document is not well-formed XML: line " +
                    std::to_string(XML_GetCurrentLineNumber(parser.get())) + ": " +
                    XML_ErrorString(XML_GetErrorCode(parser.get()));
        return false;
      });
  return is_read ? complaint : std::strerror(errno);
}

/// The length of the text without a character that the next piece may complete.
size_t length_of_whole_characters(std::string_view text) {
  constexpr size_t longest = 4;
  size_t length = text.size();
  for (size_t back = 1; back <= std::min(longest, text.size()); ++back) {
    const auto byte = static_cast<unsigned char>(text[text.size() - back]);
    if (byte >= 0xc0) {
      return text.size() - back;
    }
    if (byte < 0x80) {
      break;
    }
  }
  return length;
}

std::string complaint_about_utf_8(int file, uint64_t offset, uint64_t bytes) {
  std::string rest;
  std::string complaint;
  const bool is_read =
      for_each_piece(file, offset, bytes, [&](std::string_view piece, bool is_last) {
        rest += piece;
        const size_t whole = is_last ? rest.size() : length_of_whole_characters(rest);
        const std::string_view text = std::string_view(rest).substr(0, whole);
        if (find_no_utf_8(text) != std::string_view::npos) {
          complaint = "the document has bytes that are not UTF-8";
          return false;
        }
        rest.erase(0, whole);
        return true;
      });
  return is_read ? complaint : std::strerror(errno);
}

}  // namespace

std::string complaint_about_document(const std::string& format, int file, uint64_t offset,
                                     uint64_t bytes) {
  if (format == "xml" || format == "xmltv") {
    return complaint_about_xml(file, offset, bytes);
  }
  return format == "json" ? complaint_about_utf_8(file, offset, bytes) : std::string();
}
