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

  /// A global default that took effect.
  void take_global_default(const SchedulePart& part);

  void begin_section(const SchedulePart& part, const PartEffect& effect);

  /// An entry or an unusable line of the section.
  void check_line(const SchedulePart& part, const PartEffect& effect);

  /// At the end of the file, when its type is known.
  void finish();

 private:
  void take_default(const SchedulePart& part, size_t slot);
  void take_path(const SchedulePart& part);

  WrittenSchedule& written_;
  bool with_media_;
  TypeCheck& types_;
  std::vector<Finding>& findings_;
  bool is_foreign_ = false;  ///< the section's name is of another type than the schedule's
  std::optional<Place> global_default_;
  std::map<size_t, Place> defaults_;  ///< by slot
};

/// What is wrong with a line of a defaults section that is of no effect, in a schedule of that
/// type.
Finding finding_for_unused_default(const SchedulePart& part, std::string_view schedule_type);
