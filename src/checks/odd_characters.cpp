#include "checks/odd_characters.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <optional>

#include "platform/syntax/utf_8.hpp"

namespace {

struct LookAlike {
  uint32_t character;
  char latin;
};

/// Cyrillic and Greek letters with the shape of a Latin one.
constexpr auto look_alikes = std::to_array<LookAlike>({
    {0x0391, 'A'}, {0x0392, 'B'}, {0x0395, 'E'}, {0x0396, 'Z'}, {0x0397, 'H'}, {0x0399, 'I'},
    {0x039a, 'K'}, {0x039c, 'M'}, {0x039d, 'N'}, {0x039f, 'O'}, {0x03a1, 'P'}, {0x03a4, 'T'},
    {0x03a5, 'Y'}, {0x03a7, 'X'}, {0x03bf, 'o'}, {0x0405, 'S'}, {0x0406, 'I'}, {0x0408, 'J'},
    {0x0410, 'A'}, {0x0412, 'B'}, {0x0415, 'E'}, {0x041a, 'K'}, {0x041c, 'M'}, {0x041d, 'H'},
    {0x041e, 'O'}, {0x0420, 'P'}, {0x0421, 'C'}, {0x0422, 'T'}, {0x0425, 'X'}, {0x0430, 'a'},
    {0x0435, 'e'}, {0x043e, 'o'}, {0x0440, 'p'}, {0x0441, 'c'}, {0x0443, 'y'}, {0x0445, 'x'},
    {0x0455, 's'}, {0x0456, 'i'}, {0x0458, 'j'},
});

bool is_wide_blank(uint32_t c) {
  return c == 0xa0 || (c >= 0x2000 && c <= 0x200a) || c == 0x202f || c == 0x205f || c == 0x3000;
}

bool is_without_width(uint32_t c) {
  return c == 0xad || (c >= 0x200b && c <= 0x200f) || (c >= 0x2028 && c <= 0x202e) ||
         (c >= 0x2060 && c <= 0x206f) || c == 0xfeff;
}

bool is_latin_letter(uint32_t c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= 0xc0 && c <= 0x24f);
}

bool is_greek_or_cyrillic_letter(uint32_t c) {
  return c >= 0x370 && c <= 0x52f;
}

std::string number_of(uint32_t c) {
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), "\\u%04x", static_cast<unsigned>(c));
  return text.data();
}

/// A run of letters of any of these scripts, or one other character or byte.
struct Run {
  std::string_view text;
  std::optional<uint32_t> character;  ///< the first one; nothing for a byte that is no character
  bool is_mixed = false;              ///< letters of two scripts
};

Run take_run(std::string_view& text) {
  std::string_view rest = text;
  Run run{.text = {}, .character = take_utf_8(rest)};
  bool has_latin = false;
  bool has_other = false;
  std::string_view behind = text;
  while (!behind.empty()) {
    const std::string_view before = behind;
    const std::optional<uint32_t> c = take_utf_8(behind);
    const bool is_letter = c && (is_latin_letter(*c) || is_greek_or_cyrillic_letter(*c));
    if (!is_letter) {
      behind = before;
      break;
    }
    (is_latin_letter(*c) ? has_latin : has_other) = true;
  }
  size_t length = text.size() - behind.size();
  if (length == 0) {
    length = std::max<size_t>(text.size() - rest.size(), 1);
  }
  run.is_mixed = has_latin && has_other;
  run.text = text.substr(0, length);
  text.remove_prefix(length);
  return run;
}

/// Replaces the odd characters of the text by what the function returns for each.
template <typename Replacement>
std::string with_odd_characters_replaced(std::string_view text, Replacement replacement) {
  std::string out;
  while (!text.empty()) {
    const Run run = take_run(text);
    if (run.is_mixed) {
      for (std::string_view letters = run.text; !letters.empty();) {
        const std::string_view before = letters;
        const uint32_t c = take_utf_8(letters).value_or(0);
        out += is_latin_letter(c) ? std::string(before.substr(0, before.size() - letters.size()))
                                  : replacement(c);
      }
    } else if (run.character &&
               (is_wide_blank(*run.character) || is_without_width(*run.character))) {
      out += replacement(*run.character);
    } else {
      out += run.text;
    }
  }
  return out;
}

std::string plain_character(uint32_t c) {
  if (is_wide_blank(c)) {
    return " ";
  }
  const auto* found = std::ranges::find(look_alikes, c, &LookAlike::character);
  if (found != look_alikes.end()) {
    return {found->latin};
  }
  std::string same;
  if (!is_without_width(c)) {
    append_utf_8(same, c);
  }
  return same;
}

}  // namespace

std::string with_odd_characters_shown(std::string_view text) {
  return with_odd_characters_replaced(text, number_of);
}

std::string with_plain_characters(std::string_view text) {
  return with_odd_characters_replaced(text, plain_character);
}
