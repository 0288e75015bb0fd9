#pragma once

#include <ctime>

#include "schedule/schedule.hpp"

/// The stretch of calendar time that a document reports: items that start in [start, end).
struct ReportWindow {
  time_t start;
  time_t end;
};

/// The schedule's unit or, as the options ask, what lies in it of the months or weeks before, of
/// and after the report time.
ReportWindow report_window(const Schedule& schedule);
