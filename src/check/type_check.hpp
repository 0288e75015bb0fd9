#pragma once

#include <optional>
#include <vector>

#include "check/finding.hpp"
#include "platform/syntax/schedule_file.hpp"
#include "schedule/schedule.hpp"

/// Checks the type lines of a schedule, and whether the type stands before what needs it.
class TypeCheck {
 public:
  TypeCheck(const Schedule& schedule, std::vector<Finding>& findings)
      : schedule_(schedule), findings_(findings) {}

  /// A type line, or a defaults section whose name gave the type, that took effect.
  void take_type(Place place);

  /// A type line that is of no effect.
  void check_unused_type(const SchedulePart& part);

  /// The section there has times. Called before the section's end changes the type.
  void check_timed_section(Place place);

  /// A line was meant as a type line: that no type is known needs no further finding.
  void set_misspelt() { is_misspelt_ = true; }

  /// Where the type comes from, if it is known.
  Place type_place() const { return type_place_.value_or(Place{}); }

  /// At the end of the file.
  void finish();

 private:
  Finding finding_for_unknown_type(std::string_view text, Place place) const;

  const Schedule& schedule_;
  std::vector<Finding>& findings_;
  std::optional<Place> type_place_;
  std::optional<Place> first_untyped_;  ///< first section that needed a type and found none
  bool is_misspelt_ = false;
};
