#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <utility>

#include "platform/system/line_reader.hpp"

// The syntax of schedule files: lines, sections and their keys. The caller decides what the values
// mean.

/// Maximum length of a piece, in bytes. A longer line is read as several pieces.
inline constexpr int longest_schedule_line = 1023;

/// The only name with a meaning outside of sections.
inline constexpr std::string_view global_default_name = "global default";

enum class SectionKind {
  none,  ///< the top level
  item,
  block,
  defaults,
  unknown,
};

/// Names of sections. An item's section has no name.
inline constexpr std::string_view block_section_name = "schedule block";
inline constexpr std::string_view defaults_section_prefix = "defaults,";
SectionKind section_kind_of_name(std::string_view name);

enum class ScheduleKey { item, start, end, label, block, event_id, item_duration, announce };

enum class ValueKind { text, time, number };

/// A key that has a meaning in sections of a kind.
struct SectionKey {
  ScheduleKey key;
  std::string_view name;
  bool is_needed;  ///< a section without it is dropped
  ValueKind value_kind;
};

/// The keys of items or of blocks. Empty for other sections.
std::span<const SectionKey> section_keys(SectionKind kind);

/// Null when sections of this kind have no such key.
const SectionKey* find_section_key(SectionKind kind, std::string_view name);

/// The kind of a line of a schedule file.
enum class PartKind {
  comment,        ///< an empty line, or "#" and anything
  type,           ///< "*" and a type, `name`
  name_value,     ///< any other line at the top level
  section_begin,  ///< `name` and "{"
  entry,          ///< in a section: `name` and `value`, both present
  unusable_line,  ///< in a section; in an unknown section, every line
  nested_begin,   ///< opens a further level of a section that may nest
  nested_end,
  section_end,
  cut_off,  ///< not a line: the file ended inside the section
};

/// A line of a schedule file, or a piece of an overlong line. The texts stay valid as long as those
/// of LineReader.
struct SchedulePart {
  PartKind kind = PartKind::comment;
  SectionKind section = SectionKind::none;  ///< it belongs to this, begins or ends it
  int64_t section_line = 0;                 ///< the line where that section begins
  int64_t line = 0;                         ///< from 1
  int64_t column = 0;                       ///< of `text`, from 1, in bytes
  bool is_rest = false;        ///< the line before was too long, and this is its next piece
  std::string_view text = {};  ///< without line end and leading blanks
  std::string_view name = {};
  std::string_view value = {};      ///< empty, like the name, when the line cannot be split
  std::string_view clarifier = {};  ///< in a defaults section only
  int64_t value_column = 0;         ///< 0 without a value
  const SectionKey* key = nullptr;  ///< the known key `name` of an item's or a block's section
};

/// Goes through a schedule file and returns its parts in order.
class ScheduleFile {
 public:
  explicit ScheduleFile(FileDescriptor file) : lines_(std::move(file), longest_schedule_line) {}

  /// The text must outlive the parts.
  explicit ScheduleFile(std::string_view text) : lines_(text, longest_schedule_line) {}

  /// The next part; false at the end of the file or on a read error.
  bool next(SchedulePart& part);

  /// The errno of a failed read; 0 if all succeeded.
  int error() const { return lines_.error(); }

 private:
  void begin_part(SchedulePart& part, std::string_view piece) const;
  void read_top_level_line(SchedulePart& part);
  void read_nested_section_line(SchedulePart& part);
  void leave_section();

  LineReader lines_;
  SectionKind section_ = SectionKind::none;
  int64_t section_line_ = 0;
  int64_t depth_ = 0;
};

/// Whether a line opens or closes a level of sections.
bool opens_section(std::string_view text);
bool closes_section(std::string_view text);
