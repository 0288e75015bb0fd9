#pragma once

#include <vector>

#include "checks/finding.hpp"
#include "import/made_schedule.hpp"
#include "import/row_times.hpp"

/// Adds what the row airs on that day: one section, or two when it runs over the end of the unit.
/// False, with a finding, when it cannot be placed.
bool place_section(const TableRules& rules, int64_t row, const RowTimes& times, uint32_t day,
                   std::vector<MadeSection>& sections, std::vector<Finding>& findings);

/// Gives each item of `open` the start of the next item as its end and adds it to `items`. An item
/// after which nothing starts for a day gets a finding.
void close_open_ends(std::vector<MadeSection>& open, const TableRules& rules,
                     std::vector<MadeSection>& items, std::vector<Finding>& findings);

/// The value of "item duration" for a row: seconds as written, or counted from another form. Empty
/// when the cell is empty or wrong.
std::string item_duration_text(const TableRules& rules, int64_t row);
