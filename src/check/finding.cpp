#include "check/finding.hpp"

#include <algorithm>
#include <array>
#include <optional>
#include <tuple>

#include "platform/syntax/json_text.hpp"
#include "platform/syntax/utf_8.hpp"

namespace {

// By the value of Finding.
constexpr auto infos = std::to_array<FindingInfo>({
    {Finding::unreadable, "unreadable", Severity::error},
    {Finding::link, "link", Severity::error},
    {Finding::byte_order_mark, "byte-order-mark", Severity::error},
    {Finding::utf_16, "utf-16", Severity::error},
    {Finding::carriage_return, "carriage-return", Severity::error},
    {Finding::nul_byte, "nul-byte", Severity::error},
    {Finding::long_line, "long-line", Severity::error},
    {Finding::not_utf_8, "not-utf-8", Severity::warning},
    {Finding::unclosed_section, "unclosed-section", Severity::error},
    {Finding::text_behind_brace, "text-behind-brace", Severity::error},
    {Finding::stray_brace, "stray-brace", Severity::error},
    {Finding::comment_behind_value, "comment-behind-value", Severity::error},
    {Finding::no_type, "no-type", Severity::error},
    {Finding::unknown_type, "unknown-type", Severity::error},
    {Finding::second_type, "second-type", Severity::error},
    {Finding::late_type, "late-type", Severity::error},
    {Finding::type_without_unit, "type-without-unit", Severity::error},
    {Finding::unknown_section, "unknown-section", Severity::error},
    {Finding::unknown_key, "unknown-key", Severity::error},
    {Finding::unknown_name, "unknown-name", Severity::error},
    {Finding::no_key, "no-key", Severity::error},
    {Finding::colon, "colon", Severity::error},
    {Finding::letter_case, "letter-case", Severity::error},
    {Finding::repeated_key, "repeated-key", Severity::error},
    {Finding::bad_time, "bad-time", Severity::error},
    {Finding::bare_number, "bare-number", Severity::error},
    {Finding::foreign_weekday, "foreign-weekday", Severity::error},
    {Finding::needless_date, "needless-date", Severity::warning},
    {Finding::out_of_range, "out-of-range", Severity::error},
    {Finding::bad_number, "bad-number", Severity::error},
    {Finding::no_such_date, "no-such-date", Severity::warning},
    {Finding::skipped_hour, "skipped-hour", Severity::warning},
    {Finding::repeated_hour, "repeated-hour", Severity::warning},
    {Finding::missing, "missing", Severity::error},
    {Finding::reversed, "reversed", Severity::error},
    {Finding::no_length, "no-length", Severity::error},
    {Finding::same_start, "same-start", Severity::error},
    {Finding::overlap, "overlap", Severity::warning},
    {Finding::outside_unit, "outside-unit", Severity::error},
    {Finding::block_cuts, "block-cuts", Severity::warning},
    {Finding::unknown_announce, "unknown-announce", Severity::warning},
    {Finding::no_member, "no-member", Severity::warning},
    {Finding::unknown_block, "unknown-block", Severity::warning},
    {Finding::default_key, "default-key", Severity::error},
    {Finding::default_section, "default-section", Severity::error},
    {Finding::default_range, "default-range", Severity::error},
    {Finding::repeated_default, "repeated-default", Severity::error},
    {Finding::no_default, "no-default", Severity::warning},
    {Finding::missing_media, "missing-media", Severity::error},
    {Finding::unreadable_media, "unreadable-media", Severity::error},
    {Finding::no_file, "no-file", Severity::error},
    {Finding::bad_schedule, "bad-schedule", Severity::error},
    {Finding::circular, "circular", Severity::error},
    {Finding::too_deep, "too-deep", Severity::error},
    {Finding::wraparound, "wraparound", Severity::warning},
    {Finding::not_announced, "not-announced", Severity::warning},
    {Finding::markup, "markup", Severity::warning},
    {Finding::control_character, "control-character", Severity::warning},
    {Finding::unknown_zone, "unknown-zone", Severity::error},
});

constexpr std::string_view hex_digits = "0123456789abcdef";

std::string_view name_of(Severity severity) {
  switch (severity) {
    case Severity::error:
      return "error";
    case Severity::warning:
      return "warning";
    case Severity::note:
      break;
  }
  return "note";
}

/// The length of the printable character that the text begins with; 0: none.
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

void append_report(std::string& out, std::string_view file, const Report& report) {
  const FindingInfo& info = info_of(report.finding);
  out += '{';
  append_member(out, "file", file);
  append_place(out, report.place);
  out += ", ";
  append_member(out, "severity", name_of(info.severity));
  out += ", ";
  append_member(out, "id", info.id);
  out += ", ";
  append_member(out, "message", report.text);
  out += ", \"notes\": [";
  const char* separator = "";
  for (const Note& note : report.notes) {
    out += separator;
    out += '{';
    append_member(out, "file", file);
    append_place(out, note.place);
    out += ", ";
    append_member(out, "message", note.text);
    out += '}';
    separator = ", ";
  }
  out += "]}";
}

}  // namespace

std::span<const FindingInfo> finding_infos() {
  return infos;
}

const FindingInfo& info_of(Finding finding) {
  return infos.at(static_cast<size_t>(finding));
}

void sort_reports(FileReports& file) {
  const auto order = [](const Report& report) {
    return std::tie(report.place.line, report.place.column, report.finding, report.text);
  };
  std::ranges::stable_sort(file.reports, {}, order);
  std::vector<Report> once;
  for (Report& report : file.reports) {
    if (once.empty() || order(once.back()) != order(report)) {
      once.push_back(std::move(report));
    }
  }
  file.reports = std::move(once);
}

std::string text_of(const FileReports& file, size_t most) {
  std::string out;
  for (size_t i = 0; i < std::min(most, file.reports.size()); ++i) {
    const Report& report = file.reports[i];
    const FindingInfo& info = info_of(report.finding);
    out += line_of(file.file, report.place, info.severity, report.text, info.id);
    for (const Note& note : report.notes) {
      out += line_of(file.file, note.place, Severity::note, note.text, {});
    }
  }
  if (file.reports.size() > most) {
    out +=
        escaped(file.file) + ": " + std::to_string(file.reports.size() - most) + " more findings\n";
  }
  return out;
}

std::string json_of(std::span<const FileReports> files) {
  std::string out = "[";
  const char* separator = "";
  for (const FileReports& file : files) {
    for (const Report& report : file.reports) {
      out += separator;
      append_report(out, file.file, report);
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
  return "'" + escaped(text) + "'";
}
