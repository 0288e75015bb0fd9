#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "checks/finding.hpp"
#include "checks/made_formats.hpp"
#include "checks/written_schedule.hpp"
#include "schedule/schedule_reader.hpp"

// The checks of lines, a source for each subject. read_and_check_lines calls them for each part of
// a file; the functions `finish_...` at its end.

/// A time that is only a number.
struct BareNumber {
  WrittenValue value;
  std::string_view other;  ///< the other time of its section; empty if there is none
};

/// What these checks know of the file so far.
struct LineChecks {
  WrittenSchedule& written;
  FileFindings& found;
  bool with_media;  ///< look whether files exist, where that matters
  MadeFormats formats;
  bool has_content = false;  ///< some line is neither a comment nor a type that is used

  // The type.
  std::optional<Place> type_place = {};     ///< where it comes from, if it is known
  std::optional<Place> first_untyped = {};  ///< first section that needed a type and found none
  bool is_type_misspelt = false;  ///< a line was meant as its line: a missing type is no finding

  // Default items.
  std::optional<Place> global_default = {};
  std::map<size_t, Place> defaults = {};  ///< by slot
  bool are_defaults_foreign = false;      ///< the section's name belongs to another type

  // Lines outside sections.
  std::string_view name_without_brace = {};  ///< the last finding is that of this section's name
  int64_t table_line = -1;                   ///< last line of a table

  // The open section.
  Place section_place = {};
  bool is_section_broken = false;   ///< it runs into the next one and gets no more findings
  bool is_in_lost_section = false;  ///< it does not count, because text follows its '{'
  WrittenSection section = {};      ///< of an item or a block
  std::map<std::string_view, size_t> misspelt = {};     ///< by key: the index of its finding
  std::map<std::string_view, Place> empty_values = {};  ///< by key: lines without a value

  // Times.
  bool has_clocks = false;  ///< whether some time is more than a number
  std::vector<BareNumber> bare_numbers = {};
};

// type_check.cpp: type lines, and whether the type comes before the sections that need it.

/// Takes a type line, or a defaults section whose name gave the type, that the reader used.
void take_type(LineChecks& checks, Place place);

/// Checks a type line that has no effect.
void check_unused_type(LineChecks& checks, const SchedulePart& part);

/// Checks that a type is known for a section with times. Call it before the end of the section
/// changes the type.
void check_timed_section(LineChecks& checks, Place place);

/// Where the type comes from; the first line if that is not known.
Place type_place(const LineChecks& checks);

void finish_type_check(LineChecks& checks);

// name_check.cpp: lines outside sections, and names of sections.

/// The finding for a line outside sections that is neither a global default nor a misplaced brace.
Finding finding_for_unused_name(const SchedulePart& part);

/// Whether the line has three columns or more, as of a spreadsheet.
bool is_line_of_table(std::string_view text);
Finding finding_for_table(Place place);

/// The section that was probably meant by that name: empty for that of an item.
std::optional<std::string> meant_section(std::string_view name);

Finding finding_for_unknown_section(const SchedulePart& part);

/// Says in the finding of a line with a section's name that the '{' on the next line belongs there.
void take_brace_of_line_before(Finding& finding, std::string_view name, const SchedulePart& brace);

/// "; did you mean 'NAME'?" with the section that was probably meant, or nothing.
std::string did_you_mean_section(std::string_view name);

// defaults_check.cpp: the defaults sections and the global default.

/// Takes a global default that the reader used.
void take_global_default(LineChecks& checks, const SchedulePart& part);

void begin_defaults(LineChecks& checks, const SchedulePart& part, const PartEffect& effect);

/// Checks an entry or an unusable line of the section.
void check_defaults_line(LineChecks& checks, const SchedulePart& part, const PartEffect& effect);

/// The finding for a line of a defaults section that has no effect in a schedule of that type.
Finding finding_for_unused_default(const SchedulePart& part, std::string_view schedule_type);

void finish_defaults_check(LineChecks& checks);

// section_check.cpp: the sections of items and blocks. What is written in them is kept.

void begin_section(LineChecks& checks, const SchedulePart& part);

/// Checks an entry or an unusable line of the section.
void check_section_line(LineChecks& checks, const SchedulePart& part);

/// Call this when the reader has stored or dropped the section.
void end_section(LineChecks& checks, const SchedulePart& part, const PartEffect& effect);

// value_check.cpp: the times, numbers and texts of items and blocks.

void check_values(LineChecks& checks, const WrittenSection& section);

// time_check.cpp: the times of items and blocks.

void check_time(LineChecks& checks, const WrittenSection& section, const WrittenValue& value);

/// Checks the times that are only numbers. Call it when all times of the file are known.
void finish_time_check(LineChecks& checks);
