#include "checks/checks.hpp"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "platform/syntax/schedule_file.hpp"
#include "platform/syntax/text.hpp"
#include "platform/syntax/utf_8.hpp"

namespace {

/// Whether the file begins as UTF-16 without a byte order mark: every other byte is NUL.
bool is_unmarked_utf_16(std::string_view content) {
  constexpr size_t checked = 8;
  if (content.size() < checked) {
    return false;
  }
  const auto are_nul = [&](size_t first) {
    for (size_t i = first; i < checked; i += 2) {
      if (content[i] != '\0' || content[i ^ 1U] == '\0') {
        return false;
      }
    }
    return true;
  };
  return are_nul(0) || are_nul(1);
}

bool is_utf_16(std::string_view content) {
  return content.starts_with("\xff\xfe") || content.starts_with("\xfe\xff") ||
         is_unmarked_utf_16(content);
}

/// Whether the text is a table and no schedule: its first line has cells, and nothing opens a
/// section.
bool is_table(std::string_view content) {
  if (content.starts_with(byte_order_mark)) {
    content.remove_prefix(byte_order_mark.size());
  }
  const std::string_view text =
      content.substr(std::min(content.find_first_not_of("\r\n ,;\t"), content.size()));
  const std::string_view line = text.substr(0, text.find_first_of("\r\n"));
  const bool has_cells = std::ranges::any_of(std::string_view(",;\t"), [line](char separator) {
    return std::ranges::count(line, separator) >= 2;
  });
  return has_cells && !line.starts_with('#') && !line.starts_with('*') &&
         line.find('=') == std::string_view::npos && content.find('{') == std::string_view::npos;
}

/// Whether lines end with carriage returns alone, as on old systems.
bool has_old_line_ends(std::string_view content) {
  const bool has_line_feed = content.find('\n') != std::string_view::npos;
  chomp(content);
  return !has_line_feed && content.find('\r') != std::string_view::npos;
}

/// Which of the bytes that lines are searched for a text has at all. Most files have none.
struct OddBytes {
  bool has_nul = false;
  bool has_carriage_return = false;
  bool has_no_utf_8 = false;  ///< where UTF-8 is needed
};

void check_bytes_of_line(std::string_view line, int64_t number, const OddBytes& odd,
                         FileFindings& found) {
  const auto add = [&](FindingKind kind, size_t offset, std::string text) {
    found.add(kind, {number, static_cast<int64_t>(offset) + 1}, std::move(text));
  };
  if (const size_t nul = odd.has_nul ? line.find('\0') : std::string_view::npos;
      nul != std::string_view::npos) {
    add(FindingKind::nul_byte, nul, "a NUL byte ends the line here");
  }
  std::string_view text = line;
  chomp(text);
  if (const size_t at = odd.has_carriage_return ? text.find('\r') : std::string_view::npos;
      at != std::string_view::npos) {
    add(FindingKind::carriage_return, at, "a carriage return inside a line does not end it");
  }
  // The reader's limit includes the line feed.
  if (line.size() > static_cast<size_t>(longest_schedule_line)) {
    add(FindingKind::long_line, static_cast<size_t>(longest_schedule_line),
        "a line of " + std::to_string(line.size()) +
            " bytes: the part after the first 1023 bytes is read as further lines");
  }
  if (const size_t at = odd.has_no_utf_8 ? find_no_utf_8(line) : std::string_view::npos;
      at != std::string_view::npos) {
    add(FindingKind::not_utf_8, at, "not valid UTF-8; the documents show these bytes unchanged");
  }
}

}  // namespace

bool is_hopeless(std::string_view content) {
  return is_utf_16(content) || is_table(content) || has_old_line_ends(content);
}

void check_bytes(std::string_view content, const MadeFormats& formats, FileFindings& found) {
  if (is_utf_16(content)) {
    found.add(FindingKind::utf_16, {},
              "the file is UTF-16, which cannot be read; save it as UTF-8");
    return;
  }
  if (is_table(content)) {
    found.add(FindingKind::table, {},
              "the file is a table; nv8x_schedule_import makes a schedule of it");
    return;
  }
  if (has_old_line_ends(content)) {
    const auto at = static_cast<int64_t>(content.find('\r'));
    found.add(FindingKind::carriage_return, {1, at + 1},
              "carriage returns alone do not end lines: the whole file is one line");
    return;
  }
  if (content.starts_with(byte_order_mark)) {
    found.add(FindingKind::byte_order_mark, {},
              "the byte order mark makes the first line an unknown line; save the file without it",
              {},
              {{1, std::string(content.substr(byte_order_mark.size(),
                                              content.find('\n') - byte_order_mark.size()))}});
  }
  const bool is_utf_8_needed = formats.xml || formats.json;
  const OddBytes odd{
      .has_nul = content.find('\0') != std::string_view::npos,
      .has_carriage_return = content.find('\r') != std::string_view::npos,
      .has_no_utf_8 = is_utf_8_needed && find_no_utf_8(content) != std::string_view::npos};
  int64_t number = 0;
  for (std::string_view rest = content; !rest.empty();) {
    const std::string_view line = rest.substr(0, rest.find('\n'));
    check_bytes_of_line(line, ++number, odd, found);
    rest.remove_prefix(std::min(line.size() + 1, rest.size()));
  }
}
