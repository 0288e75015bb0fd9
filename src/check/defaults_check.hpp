#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <vector>

#include "check/finding.hpp"
#include "check/type_check.hpp"
#include "check/written_schedule.hpp"
#include "schedule/schedule_reader.hpp"

/// Checks the defaults sections and the global default.
class DefaultsCheck {
 public:
  DefaultsCheck(WrittenSchedule& written, bool with_media, TypeCheck& types,
                std::vector<Finding>& findings)
      : written_(written), with_media_(with_media), types_(types), findings_(findings) {}

  /// Takes a global default that the reader used.
  void take_global_default(const SchedulePart& part);

  void begin_section(const SchedulePart& part, const PartEffect& effect);

  /// Checks an entry or an unusable line of the section.
  void check_line(const SchedulePart& part, const PartEffect& effect);

  /// Called at the end of the file, when the type is known.
  void finish();

 private:
  void take_default(const SchedulePart& part, size_t slot);
  void take_path(const SchedulePart& part);

  WrittenSchedule& written_;
  bool with_media_;
  TypeCheck& types_;
  std::vector<Finding>& findings_;
  bool is_foreign_ = false;  ///< the section's name belongs to another type than the schedule's
  std::optional<Place> global_default_;
  std::map<size_t, Place> defaults_;  ///< by slot
};

/// The finding for a line of a defaults section that has no effect in a schedule of that type.
Finding finding_for_unused_default(const SchedulePart& part, std::string_view schedule_type);
