#pragma once

#include <optional>
#include <vector>

#include "check/finding.hpp"
#include "platform/syntax/schedule_file.hpp"
#include "schedule/schedule.hpp"

/// Checks the type lines of a schedule, and whether the type comes before the sections that need
/// it.
class TypeCheck {
 public:
  TypeCheck(const Schedule& schedule, std::vector<Finding>& findings)
      : schedule_(schedule), findings_(findings) {}

  /// Takes a type line, or a defaults section whose name gave the type, that the reader used.
  void take_type(Place place);

  /// Checks a type line that has no effect.
  void check_unused_type(const SchedulePart& part);

  /// Checks that a type is known for a section with times. Call it before the end of the section
  /// changes the type.
  void check_timed_section(Place place);

  /// A misspelt line was meant as the type line, so a missing type needs no finding of its own.
  void set_misspelt() { is_misspelt_ = true; }

  /// Where the type comes from, if it is known.
  Place type_place() const { return type_place_.value_or(Place{}); }

  /// Called at the end of the file.
  void finish();

 private:
  Finding finding_for_unknown_type(std::string_view text, Place place) const;

  const Schedule& schedule_;
  std::vector<Finding>& findings_;
  std::optional<Place> type_place_;
  std::optional<Place> first_untyped_;  ///< first section that needed a type and found none
  bool is_misspelt_ = false;
};
