#pragma once

#include <string>
#include <vector>

#include "checks/finding.hpp"
#include "import/made_schedule.hpp"
#include "import/row_times.hpp"

/// A schedule file, and for each of its lines the cell of the table that it comes from.
struct ScheduleText {
  std::string text;
  std::vector<Place> places;
};

/// Writes the schedule as people write one: defaults, blocks and items in airing order, with
/// comments that name the rows. `source` is the table's name, for the first comment.
ScheduleText schedule_text(const MadeSchedule& made, const TableRules& rules,
                           const std::string& source);
