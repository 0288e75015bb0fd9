#include "checks/finding.hpp"

#include <algorithm>
#include <array>
#include <optional>
#include <tuple>
#include <utility>

#include "checks/odd_characters.hpp"
#include "checks/table_finding.hpp"
#include "platform/syntax/json_text.hpp"
#include "platform/syntax/utf_8.hpp"

namespace {

// In the order of FindingKind.
constexpr auto infos = std::to_array<FindingInfo>({
    {FindingKind::unreadable, "unreadable", Severity::error},
    {FindingKind::link, "link", Severity::error},
    {FindingKind::byte_order_mark, "byte-order-mark", Severity::error},
    {FindingKind::utf_16, "utf-16", Severity::error},
    {FindingKind::table, "table", Severity::error},
    {FindingKind::carriage_return, "carriage-return", Severity::error},
    {FindingKind::nul_byte, "nul-byte", Severity::error},
    {FindingKind::long_line, "long-line", Severity::error},
    {FindingKind::not_utf_8, "not-utf-8", Severity::warning},
    {FindingKind::no_programmes, "no-programmes", Severity::error},
    {FindingKind::unclosed_section, "unclosed-section", Severity::error},
    {FindingKind::text_behind_brace, "text-behind-brace", Severity::error},
    {FindingKind::stray_brace, "stray-brace", Severity::error},
    {FindingKind::comment_behind_value, "comment-behind-value", Severity::error},
    {FindingKind::comment_in_label, "comment-in-label", Severity::warning},
    {FindingKind::odd_path, "odd-path", Severity::error},
    {FindingKind::no_type, "no-type", Severity::error},
    {FindingKind::unknown_type, "unknown-type", Severity::error},
    {FindingKind::second_type, "second-type", Severity::error},
    {FindingKind::late_type, "late-type", Severity::error},
    {FindingKind::type_without_unit, "type-without-unit", Severity::error},
    {FindingKind::unknown_section, "unknown-section", Severity::error},
    {FindingKind::unknown_key, "unknown-key", Severity::error},
    {FindingKind::unknown_name, "unknown-name", Severity::error},
    {FindingKind::no_key, "no-key", Severity::error},
    {FindingKind::colon, "colon", Severity::error},
    {FindingKind::double_equals, "double-equals", Severity::error},
    {FindingKind::letter_case, "letter-case", Severity::error},
    {FindingKind::repeated_key, "repeated-key", Severity::error},
    {FindingKind::bad_time, "bad-time", Severity::error},
    {FindingKind::bare_number, "bare-number", Severity::error},
    {FindingKind::foreign_weekday, "foreign-weekday", Severity::error},
    {FindingKind::needless_date, "needless-date", Severity::warning},
    {FindingKind::out_of_range, "out-of-range", Severity::error},
    {FindingKind::bad_number, "bad-number", Severity::error},
    {FindingKind::incomplete_time, "incomplete-time", Severity::warning},
    {FindingKind::month_first, "month-first", Severity::warning},
    {FindingKind::noon, "noon", Severity::warning},
    {FindingKind::no_such_date, "no-such-date", Severity::warning},
    {FindingKind::skipped_hour, "skipped-hour", Severity::warning},
    {FindingKind::repeated_hour, "repeated-hour", Severity::warning},
    {FindingKind::missing, "missing", Severity::error},
    {FindingKind::reversed, "reversed", Severity::error},
    {FindingKind::no_length, "no-length", Severity::error},
    {FindingKind::same_start, "same-start", Severity::error},
    {FindingKind::overlap, "overlap", Severity::warning},
    {FindingKind::outside_unit, "outside-unit", Severity::error},
    {FindingKind::last_second, "last-second", Severity::warning},
    {FindingKind::block_cuts, "block-cuts", Severity::warning},
    {FindingKind::unknown_announce, "unknown-announce", Severity::warning},
    {FindingKind::no_member, "no-member", Severity::warning},
    {FindingKind::unknown_block, "unknown-block", Severity::warning},
    {FindingKind::default_key, "default-key", Severity::error},
    {FindingKind::default_section, "default-section", Severity::error},
    {FindingKind::default_range, "default-range", Severity::error},
    {FindingKind::repeated_default, "repeated-default", Severity::error},
    {FindingKind::no_default, "no-default", Severity::warning},
    {FindingKind::missing_media, "missing-media", Severity::error},
    {FindingKind::unreadable_media, "unreadable-media", Severity::error},
    {FindingKind::no_file, "no-file", Severity::error},
    {FindingKind::bad_schedule, "bad-schedule", Severity::error},
    {FindingKind::circular, "circular", Severity::error},
    {FindingKind::too_deep, "too-deep", Severity::error},
    {FindingKind::empty_time, "empty-time", Severity::warning},
    {FindingKind::wraparound, "wraparound", Severity::warning},
    {FindingKind::not_announced, "not-announced", Severity::warning},
    {FindingKind::listed_end, "listed-end", Severity::warning},
    {FindingKind::listed_title, "listed-title", Severity::warning},
    {FindingKind::markup, "markup", Severity::warning},
    {FindingKind::control_character, "control-character", Severity::warning},
    {FindingKind::unknown_zone, "unknown-zone", Severity::error},
});

// In the order of Severity.
constexpr std::array<std::string_view, 3> severity_names = {"error", "warning", "note"};
constexpr std::string_view hex_digits = "0123456789abcdef";

std::string_view name_of(Severity severity) {
  return severity_names.at(static_cast<size_t>(severity));
}

/// The length in bytes of the printable character at the start of the text, or 0 if there is none.
size_t printable_length(std::string_view text) {
  std::string_view rest = text;
  const std::optional<uint32_t> c = take_utf_8(rest);
  const bool is_printable = c && *c >= 0x20 && *c != 0x7f && (*c < 0x80 || *c >= 0xa0);
  return is_printable ? text.size() - rest.size() : 0;
}

std::string line_of(std::string_view file, const Place& place, Severity severity,
                    std::string_view text, std::string_view id) {
  std::string line =
      escaped(file) + ":" + std::to_string(place.line) + ":" + std::to_string(place.column) + ": ";
  line += name_of(severity);
  line += ": ";
  line += text;
  if (!id.empty()) {
    line += " [" + std::string(id) + "]";
  }
  return line + "\n";
}

void append_member(std::string& out, std::string_view name, std::string_view value) {
  append_json_string(out, name);
  out += ": ";
  append_json_string(out, value);
}

void append_place(std::string& out, const Place& place) {
  out +=
      ", \"line\": " + std::to_string(place.line) + ", \"column\": " + std::to_string(place.column);
}

void append_finding(std::string& out, std::string_view file, const Finding& finding) {
  const FindingInfo& info = info_of(finding.kind);
  out += '{';
  append_member(out, "file", file);
  append_place(out, finding.place);
  out += ", ";
  append_member(out, "severity", name_of(info.severity));
  out += ", ";
  append_member(out, "id", info.id);
  out += ", ";
  append_member(out, "message", finding.text);
  out += ", \"notes\": [";
  const char* separator = "";
  for (const Note& note : finding.notes) {
    out += separator;
    out += '{';
    append_member(out, "file", file);
    append_place(out, note.place);
    out += ", ";
    append_member(out, "message", note.text);
    out += '}';
    separator = ", ";
  }
  out += "], \"fix\": [";
  separator = "";
  for (const LineFix& fix : finding.fix) {
    out += separator;
    out += "{\"line\": " + std::to_string(fix.line) + ", ";
    append_member(out, "text", fix.text);
    out += '}';
    separator = ", ";
  }
  out += "]}";
}

}  // namespace

std::span<const FindingInfo> finding_infos() {
  return infos;
}

const FindingInfo& info_of(FindingKind kind) {
  const auto place = static_cast<size_t>(kind);
  return place < infos.size() ? infos.at(place) : table_finding_infos()[place - infos.size()];
}

void FileFindings::add(FindingKind kind, Place place, std::string text, std::vector<Note> notes,
                       std::vector<LineFix> fix) {
  findings.push_back({kind, place, std::move(text), std::move(notes), std::move(fix)});
}

void sort_findings(FileFindings& file) {
  const auto order = [](const Finding& finding) {
    return std::tie(finding.place.line, finding.place.column, finding.kind, finding.text);
  };
  std::ranges::stable_sort(file.findings, {}, order);
  std::vector<Finding> once;
  for (Finding& finding : file.findings) {
    if (once.empty() || order(once.back()) != order(finding)) {
      once.push_back(std::move(finding));
    }
  }
  file.findings = std::move(once);
}

std::string text_of(const FileFindings& file, size_t max_findings) {
  std::string out;
  for (size_t i = 0; i < std::min(max_findings, file.findings.size()); ++i) {
    const Finding& finding = file.findings[i];
    const FindingInfo& info = info_of(finding.kind);
    out += line_of(file.file, finding.place, info.severity, finding.text, info.id);
    for (const Note& note : finding.notes) {
      out += line_of(file.file, note.place, Severity::note, note.text, {});
    }
  }
  if (file.findings.size() > max_findings) {
    out += escaped(file.file) + ": " + std::to_string(file.findings.size() - max_findings) +
           " more findings\n";
  }
  return out;
}

std::string json_of(std::span<const FileFindings> files) {
  std::string out = "[";
  const char* separator = "";
  for (const FileFindings& file : files) {
    for (const Finding& finding : file.findings) {
      out += separator;
      append_finding(out, file.file, finding);
      separator = ",\n ";
    }
  }
  return out + "]\n";
}

std::string escaped(std::string_view text) {
  std::string out;
  while (!text.empty()) {
    const size_t length = printable_length(text);
    if (length == 0) {
      const auto byte = static_cast<unsigned char>(text.front());
      out += {'\\', 'x', hex_digits[byte >> 4U], hex_digits[byte & 15U]};
    } else {
      out += text.substr(0, length);
    }
    text.remove_prefix(std::max<size_t>(length, 1));
  }
  return out;
}

std::string quoted(std::string_view text) {
  return "'" + escaped(with_odd_characters_shown(text)) + "'";
}
