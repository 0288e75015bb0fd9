#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// error: something written will not air, or not as written. warning: it airs, but probably not as
/// meant. note: belongs to the finding before it.
enum class Severity { error, warning, note };

/// What the checker can find.
enum class FindingKind {
  unreadable,
  link,
  byte_order_mark,
  utf_16,
  table,
  carriage_return,
  nul_byte,
  long_line,
  not_utf_8,
  no_programmes,
  unclosed_section,
  text_behind_brace,
  stray_brace,
  comment_behind_value,
  comment_in_label,
  odd_path,
  no_type,
  unknown_type,
  second_type,
  late_type,
  type_without_unit,
  unknown_section,
  unknown_key,
  unknown_name,
  no_key,
  colon,
  double_equals,
  letter_case,
  repeated_key,
  bad_time,
  bare_number,
  foreign_weekday,
  needless_date,
  out_of_range,
  bad_number,
  incomplete_time,
  month_first,
  noon,
  no_such_date,
  skipped_hour,
  repeated_hour,
  missing,
  reversed,
  no_length,
  same_start,
  overlap,
  outside_unit,
  last_second,
  block_cuts,
  unknown_announce,
  no_member,
  unknown_block,
  default_key,
  default_section,
  default_range,
  repeated_default,
  no_default,
  missing_media,
  unreadable_media,
  no_file,
  bad_schedule,
  circular,
  too_deep,
  empty_time,
  wraparound,
  not_announced,
  listed_end,
  listed_title,
  markup,
  control_character,
  unknown_zone,
  // Of tables (table_finding.hpp).
  no_header,
  repeated_column,
  unused_column,
  unused_cell,
  bad_quotes,
  bad_encoding,
  unknown_kind,
  bad_day,
  ambiguous,
  bad_duration,
  no_end,
  line_break,
  too_many_items,
  other_value,
  kept_sidecar,
};

struct FindingInfo {
  FindingKind kind;
  std::string_view id;  ///< as printed
  Severity severity;
};

const FindingInfo& info_of(FindingKind kind);

/// A place in a file: lines and columns from 1, columns in bytes.
struct Place {
  int64_t line = 1;
  int64_t column = 1;
};

struct Note {
  Place place;
  std::string text;
};

/// What to write in place of a line of the file: no, one or several lines.
struct LineFix {
  int64_t line = 1;
  std::string text;
};

struct Finding {
  FindingKind kind;
  Place place;
  std::string text;
  std::vector<Note> notes = {};
  std::vector<LineFix> fix = {};  ///< the advice in the text, made to the file; may be empty
};

/// What was found in one file.
struct FileFindings {
  std::string file;
  std::vector<Finding> findings = {};

  void add(FindingKind kind, Place place, std::string text, std::vector<Note> notes = {},
           std::vector<LineFix> fix = {});
};

/// Sorts the findings by place. Of several with the same place, kind and text, the first stays.
void sort_findings(FileFindings& file);

/// The findings in the form of compiler messages, FILE:LINE:COLUMN: error: TEXT [id]. At most
/// `max_findings` of the file are listed; one more line gives the number of the others.
std::string text_of(const FileFindings& file, size_t max_findings);

/// One array of objects for all files.
std::string json_of(std::span<const FileFindings> files);

/// The text as a terminal can show it. Each byte that is not part of a printable character becomes
/// \xHH.
std::string escaped(std::string_view text);

/// The escaped text in single quotes. Characters that cannot be seen, and letters that look like
/// those of another script, become \uHHHH.
std::string quoted(std::string_view text);

// For users of the library. No program calls what stands below.

/// All kinds of findings.
std::span<const FindingInfo> finding_infos();
