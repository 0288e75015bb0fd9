#pragma once

#include <ctime>
#include <string_view>

#include "checks/finding.hpp"
#include "checks/schedule_check.hpp"
#include "checks/schedule_source.hpp"
#include "checks/written_schedule.hpp"

// The steps of a check, in their order. Each adds what it finds.

inline constexpr std::string_view byte_order_mark = "\xef\xbb\xbf";

/// Checks the bytes of a file: byte order mark, encoding, line ends, overlong lines.
void check_bytes(std::string_view content, const MadeFormats& formats, FileFindings& found);

/// Whether the reader can use nothing of the content, so that further checks make no sense.
bool is_hopeless(std::string_view content);

/// Reads the content of the file into its schedule. Finds lines and sections that have no effect,
/// or probably not the effect that was meant. With media, it also checks whether files exist, where
/// that matters.
void read_and_check_lines(WrittenSchedule& written, const CheckOptions& options,
                          FileFindings& found);

/// Checks the starts and ends of items and blocks, and which items are members of a block.
void check_sections(const WrittenSchedule& written, FileFindings& found);

/// Finds items and blocks on days that some months or years lack.
void check_dates(const WrittenSchedule& written, FileFindings& found);

/// Finds times without a weekday, day, month or year that most times of the file have.
void check_missing_parts(const WrittenSchedule& written, time_t report_time, FileFindings& found);

/// Finds items from "12:00 am" that were probably to start at noon, and marks them.
void check_noon(WrittenSchedule& written, FileFindings& found);

/// Finds dates such as 5/3/2026, which may have been written with the day first.
void check_month_first(const WrittenSchedule& written, FileFindings& found);

/// Finds items that start when clocks are changed, in the unit of the report time (calendar time)
/// and in the next two units. The schedule must have a unit.
void check_clock_changes(const WrittenSchedule& written, time_t report_time, FileFindings& found);

/// Prepares the schedule as a run does, up to the announced blocks, and finds what items and blocks
/// lose by that. The unit is that of the report time (calendar time).
void check_passes(WrittenSchedule& written, time_t report_time, FileFindings& found);

/// Checks each file that the schedule names, and whether its items are announced. `id` is that of
/// the schedule's own file. Returns true if some of the files are schedules and a run can patch
/// them in: none leads back to itself, and none ends the run.
bool check_media(const WrittenSchedule& written, FileId id, const MadeFormats& formats,
                 FileFindings& found);

/// Finds announced blocks that spoil a listing by their end; items too, with `with_items`: those
/// that are announced for what the file says of them. check_media does it for all items.
void check_listed_ends(const WrittenSchedule& written, bool with_items, FileFindings& found);

/// The same for one announced item or block.
void check_listed_end(const WrittenSchedule& written, const WrittenSection& section,
                      FileFindings& found);

/// Patches in the schedules that items name, as a run does, and finds what is lost by that. Call it
/// after check_passes, and only if check_media returned true.
void check_subschedules(WrittenSchedule& written, FileFindings& found);
