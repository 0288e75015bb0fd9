#pragma once

#include <cstddef>
#include <map>
#include <vector>

#include "check/finding.hpp"
#include "check/type_check.hpp"
#include "check/value_check.hpp"
#include "check/written_schedule.hpp"
#include "schedule/schedule_reader.hpp"

/// Checks the sections of items and blocks, and keeps what is written in them.
class SectionCheck {
 public:
  SectionCheck(WrittenSchedule& written, bool with_media, TypeCheck& types,
               std::vector<Finding>& findings)
      : written_(written),
        with_media_(with_media),
        types_(types),
        values_(written.schedule, findings),
        findings_(findings) {}

  void begin_section(const SchedulePart& part);

  /// Checks an entry or an unusable line of the section.
  void check_line(const SchedulePart& part);

  /// Called when the reader has stored or dropped the section. A broken section, which runs into
  /// the next one, gets no more findings.
  void end_section(const SchedulePart& part, const PartEffect& effect, bool is_broken);

  /// Called at the end of the file.
  void finish() { values_.finish(); }

 private:
  void check_unusable_line(const SchedulePart& part);
  void check_unknown_key(const SchedulePart& part, std::string_view name);
  void take_value(const SchedulePart& part);
  void check_needed_keys(SectionKind kind);
  void keep_section(SectionKind kind, bool is_broken);

  WrittenSchedule& written_;
  bool with_media_;
  TypeCheck& types_;
  ValueCheck values_;
  std::vector<Finding>& findings_;
  WrittenSection section_;
  std::map<std::string_view, size_t>
      misspelt_;  ///< by key: the index of the finding for its misspelling
};
