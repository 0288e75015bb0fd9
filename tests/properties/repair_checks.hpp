#pragma once

#include <string>

#include "schedule/schedule.hpp"

// What holds of a schedule once it is repaired. Each check returns what it found wrong, or an empty
// text.

/// The passes from reading to the unit times, in the driver's order; returns what they printed.
std::string repair(Schedule& schedule);

/// Whether two items agree in all that a schedule file says of them.
bool is_same_item(const ScheduleItem& a, const ScheduleItem& b);

/// Whether two schedules hold the same items under the same keys.
bool is_same_listing(const Schedule& a, const Schedule& b);

/// Keys equal starts, no item ends before it starts or after the next one's start.
std::string complaint_about_order(const Schedule& repaired);

/// The items cover the unit, but for the second after the start of each item without length.
std::string complaint_about_cover(const Schedule& repaired);

/// Of the items before, those that were not reversed are there as they were, cut at most at the
/// start of the one that follows; and the report counts the cuts.
std::string complaint_about_kept_items(const Schedule& before, const Schedule& repaired,
                                       const std::string& printed);

/// All other items are default items: the item of their day, as long as the gap within the day.
std::string complaint_about_defaults(const Schedule& before, const Schedule& repaired);

/// A second repair, and a third when the unit's days are known, changes and prints nothing.
std::string complaint_about_repetition(const Schedule& repaired);

/// All of these.
std::string complaint_about_repair(const Schedule& before);
