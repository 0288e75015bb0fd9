#pragma once

#include <ctime>
#include <string_view>

/// Reads a time of a schedule file in any of the forms an operator may write it: a clock
/// ("14:30", "6:05:30.5 pm"), a date before it or alone ("Sunday", "2026-03-05", "5th March",
/// "y2026m3d5", "day 5"), or bare schedule seconds ("45000.5").
///
/// Fills year, month, day of month, weekday, hour, minute and second of `broken_down` and sets
/// `microseconds` when the text has a fraction (the caller sets it to 0 before). Months are 0 to
/// 11, years count from 1900, weekdays from Sunday; the hour may be 24. What the text does not
/// give is Sunday, the first of January 2020. Days run to 31 in every month, as schedules do.
/// Returns false, with `broken_down` unspecified, when the text is not wholly one of the forms.
bool schedule_parse_time(std::string_view text, std::tm& broken_down, long& microseconds);
