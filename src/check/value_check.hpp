#pragma once

#include <string_view>
#include <vector>

#include "check/finding.hpp"
#include "check/written_schedule.hpp"

/// The XML reference, such as "&amp;", at the start of the text, or nothing.
std::string_view reference_at(std::string_view text);

/// Checks the times, numbers and texts of items and blocks.
class ValueCheck {
 public:
  ValueCheck(const Schedule& schedule, std::vector<Finding>& findings)
      : schedule_(schedule), findings_(findings) {}

  void check_section(const WrittenSection& section);

  /// Checks the times that are only numbers. Call it when all times of the file are known.
  void finish();

 private:
  void check_time(const WrittenValue& value);
  void check_number(const WrittenValue& value);
  void check_announce(const WrittenValue& value);
  void check_markup(const WrittenValue& value);
  void check_control_characters(const WrittenValue& value);

  const Schedule& schedule_;
  std::vector<Finding>& findings_;
  bool has_clocks_ = false;  ///< whether some time is more than a number
  std::vector<WrittenValue> bare_numbers_;
};
