#pragma once

#include <ctime>
#include <limits>

#include "schedule/schedule.hpp"

/// The span of calendar time that a document reports: items that start in [start, end). `end` is
/// the last second of a period and is not part of the window: items that start in that second have
/// never been shown.
struct ReportWindow {
  time_t start;
  time_t end;
};

/// For a caller that uses all items.
inline constexpr ReportWindow all_time = {std::numeric_limits<time_t>::min(),
                                          std::numeric_limits<time_t>::max()};

/// The schedule's whole unit. With --pcn-month or --pcn-week, only the part of it in the previous,
/// current and next month or week, seen from the report time.
ReportWindow report_window(const Schedule& schedule);
