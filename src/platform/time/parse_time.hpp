#pragma once

#include <ctime>
#include <string_view>

/// Reads a time of a schedule file in any form that operators may write: a clock ("14:30",
/// "6:05:30.5 pm"), a date before a clock or alone ("Sunday", "2026-03-05", "5th March",
/// "y2026m3d5", "day 5"), or plain schedule seconds ("45000.5").
///
/// Sets year, month, day of month, weekday, hour, minute and second of `broken_down`. Sets
/// `microseconds` only if the text has a fraction, so set it to 0 before the call. Months are 0 to
/// 11, years count from 1900, weekdays from Sunday; the hour may be 24. Missing parts are Sunday, 1
/// January 2020. Every month has 31 days, as in schedules. Returns false, with `broken_down`
/// unspecified, when the whole text has none of these forms.
bool schedule_parse_time(std::string_view text, std::tm& broken_down, long& microseconds);
