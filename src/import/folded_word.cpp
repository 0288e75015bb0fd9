#include "import/folded_word.hpp"

#include <array>
#include <cstdint>
#include <optional>

#include "checks/finding.hpp"
#include "platform/syntax/text.hpp"
#include "platform/syntax/utf_8.hpp"

namespace {

// For U+00C0 to U+00DE; the lower-case letters are 0x20 above. A blank: the letter stays.
constexpr std::string_view plain_letters = "aaaaaaaceeeeiiii nooooo ouuuuy ";

constexpr uint32_t first_accented = 0xc0;
constexpr uint32_t first_accented_lower = 0xe0;
constexpr uint32_t sharp_s = 0xdf;

void append_folded(std::string& out, uint32_t c) {
  const uint32_t upper = c >= first_accented_lower ? c - 0x20 : c;
  if (c == sharp_s) {
    out += "ss";
  } else if (c == 0xa0 || c == 0x202f || c == 0x2009) {
    out += ' ';  // blanks that do not break a line
  } else if (c >= 0x2010 && c <= 0x2015) {
    out += '-';
  } else if (upper >= first_accented && upper < first_accented + plain_letters.size() &&
             plain_letters[upper - first_accented] != ' ') {
    out += plain_letters[upper - first_accented];
  } else {
    append_utf_8(out, c);
  }
}

}  // namespace

std::string folded_letters(std::string_view text) {
  std::string out;
  while (!text.empty()) {
    if (static_cast<unsigned char>(text.front()) < 0x80) {
      const char c = text.front();
      out += c == '\n' || c == '\r' ? ' ' : to_lower(c);
      text.remove_prefix(1);
    } else if (const std::optional<uint32_t> c = take_utf_8(text)) {
      append_folded(out, *c);
    } else {
      out += text.front();
      text.remove_prefix(1);
    }
  }
  return out;
}

std::string folded_word(std::string_view text) {
  std::string out;
  for (const char c : folded_letters(text)) {
    const bool is_gap = is_blank(c) || c == '_' || c == '.' || c == '-';
    if (!is_gap) {
      out += c;
    } else if (!out.empty() && out.back() != ' ') {
      out += ' ';
    }
  }
  return std::string(strip_blanks(out));
}

bool is_listed_word(std::string_view word, std::string_view words) {
  constexpr char separator = ',';
  if (word.empty() || word.find(separator) != std::string_view::npos) {
    return false;
  }
  for (size_t at = words.find(word); at != std::string_view::npos; at = words.find(word, at + 1)) {
    const size_t end = at + word.size();
    if ((at == 0 || words[at - 1] == separator) &&
        (end == words.size() || words[end] == separator)) {
      return true;
    }
  }
  return false;
}

std::string quoted_cell(std::string_view cell) {
  constexpr size_t most = 80;
  if (cell.size() <= most) {
    return quoted(cell);
  }
  std::string_view begin = cell.substr(0, most);
  while ((static_cast<unsigned char>(cell[begin.size()]) & 0xc0U) == 0x80) {
    begin.remove_suffix(1);  // a character stays whole
  }
  return quoted(std::string(begin) + "...");
}
