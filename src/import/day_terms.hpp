#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "import/cell_date.hpp"
#include "import/day_words.hpp"

/// A part of what a cell says of days: weekdays, or a range of dates.
struct DayTerm {
  WeekdaySet weekdays = 0;  ///< 0: it is a range of dates
  int ordinal = 0;          ///< of the weekday in its month: 1 to 5, or -1 for the last; 0: each
  CellDate first;
  CellDate last;  ///< the same as `first` for a single date
};

/// Reads a cell of days: "Mon-Fri", "Mon, Wed, Sat", "daily", "weekends", "1st and 3rd Tue", "last
/// Fri", dates in figures and words, ranges of dates, days of a month, and the keys of a defaults
/// section ("m3d5"). Nothing, with `problem`, when the text is something else. Empty for an empty
/// cell.
std::optional<std::vector<DayTerm>> read_day_terms(std::string_view text,
                                                   std::optional<DateOrder> order,
                                                   std::string& problem);
