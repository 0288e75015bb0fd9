#pragma once

#include <cstdint>
#include <vector>

#include "import/table.hpp"
#include "import/table_header.hpp"
#include "platform/syntax/schedule_types.hpp"

// The schedule that the rows of a table make. Its parts name the row that made them. Their texts
// stay in the table.

/// An item or a block.
struct MadeSection {
  int64_t row;
  uint64_t start;  ///< schedule seconds
  uint64_t end;
};

struct MadeDefault {
  int64_t row;
  uint32_t day;  ///< of the unit, from 0
};

struct MadeSchedule {
  const ScheduleType* type = nullptr;
  int64_t global_default_row = 0;  ///< 0: none
  std::vector<MadeDefault> defaults;
  std::vector<MadeSection> blocks;  ///< both in the order of their starts
  std::vector<MadeSection> items;
};
