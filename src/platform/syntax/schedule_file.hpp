#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <utility>

#include "platform/system/line_reader.hpp"

// The syntax of schedule files: lines, sections and their keys. What the values mean is a matter of
// those who ask.

/// Longest piece of a line, in bytes; a longer line is taken as several.
inline constexpr int longest_schedule_line = 1023;

/// The one name that counts outside of sections.
inline constexpr std::string_view global_default_name = "global default";

enum class SectionKind {
  none,  ///< the top level
  item,
  block,
  defaults,
  unknown,
};

/// Names of sections. An item's section has none.
inline constexpr std::string_view block_section_name = "schedule block";
inline constexpr std::string_view defaults_section_prefix = "defaults,";
SectionKind section_kind_of_name(std::string_view name);

enum class ScheduleKey { item, start, end, label, block, event_id, item_duration, announce };

enum class ValueKind { text, time, number };

/// A key that counts in the sections of a kind.
struct SectionKey {
  ScheduleKey key;
  std::string_view name;
  bool is_needed;  ///< whether a section without it is dropped
  ValueKind value_kind;
};

/// The keys of items or of blocks; none for other sections.
std::span<const SectionKey> section_keys(SectionKind kind);

/// Null when it is no key of such a section.
const SectionKey* find_section_key(SectionKind kind, std::string_view name);

/// What a line of a schedule file is.
enum class PartKind {
  comment,        ///< an empty line, or "#" and anything
  type,           ///< "*" and a type, `name`
  name_value,     ///< any other line at the top level
  section_begin,  ///< `name` and "{"
  entry,          ///< of a section: `name` and `value`, both given
  unusable_line,  ///< of a section; all lines of an unknown one
  nested_begin,   ///< a further level of a section that may nest
  nested_end,
  section_end,
  cut_off,  ///< no line: the file ended within the section
};

/// A line of a schedule file, or the piece of one that is too long. The texts last as long as those
/// of LineReader.
struct SchedulePart {
  PartKind kind = PartKind::comment;
  SectionKind section = SectionKind::none;  ///< that it belongs to, begins or ends
  int64_t section_line = 0;                 ///< where that section begins
  int64_t line = 0;                         ///< from 1
  int64_t column = 0;                       ///< of `text`, from 1, in bytes
  bool is_rest = false;                     ///< a further piece of a line that is too long
  std::string_view text;                    ///< without line end and blanks in front
  std::string_view name;
  std::string_view value;           ///< empty, as the name, when the line cannot be split
  std::string_view clarifier;       ///< of an entry of a defaults section
  int64_t value_column = 0;         ///< 0 without value
  const SectionKey* key = nullptr;  ///< that `name` is in an item's or a block's section
};

/// Goes through a schedule file and hands over its parts in order.
class ScheduleFile {
 public:
  explicit ScheduleFile(FileDescriptor file) : lines_(std::move(file), longest_schedule_line) {}

  /// The text must outlive the parts.
  explicit ScheduleFile(std::string_view text) : lines_(text, longest_schedule_line) {}

  /// The next part; false at the end of the file or on a read error.
  bool next(SchedulePart& part);

  /// The errno of the read that failed; 0 as long as none did.
  int error() const { return lines_.error(); }

 private:
  void read_top_level_line(SchedulePart& part, std::string_view text);
  void read_flat_section_line(SchedulePart& part, std::string_view text);
  void read_nested_section_line(SchedulePart& part, std::string_view text);

  void leave_section();

  LineReader lines_;
  SectionKind section_ = SectionKind::none;
  int64_t section_line_ = 0;
  int64_t depth_ = 0;
};

/// Whether a line opens a level of sections, or closes one.
bool opens_section(std::string_view text);
bool closes_section(std::string_view text);
