#pragma once

#include <cstdint>
#include <span>
#include <string_view>

/// The part of the calendar around a report time in which a schedule is placed.
enum class UnitPeriod { none, day, week, month, year, month_and_neighbours };

/// How the days of a unit are named. This decides a day's number in the unit, its key in a defaults
/// section and its anchor on a page.
enum class DayName { none, only_day, weekday, day_of_month, day_of_year, date, number };

/// The fixed properties of one type of schedule.
struct ScheduleType {
  std::string_view text;              ///< as in a type line and in Schedule::type
  std::string_view defaults_section;  ///< name of the section of its default items
  std::string_view mime_type;         ///< of a schedule file; empty if no file can have the type
  uint64_t unit_length;               ///< schedule seconds
  UnitPeriod period;
  int unit_days;  ///< days of the padded calendar in that period
  DayName day_name;
};

/// The type of a schedule that does not name its type.
inline constexpr std::string_view default_schedule_type = "weekly";

/// All types. Those that a schedule file can have come first.
std::span<const ScheduleType> schedule_types();

/// The type with that name, defaults section or MIME type. Null when there is none.
const ScheduleType* find_schedule_type(std::string_view text);
const ScheduleType* find_schedule_type_of_section(std::string_view defaults_section);
const ScheduleType* find_schedule_type_of_mime_type(std::string_view mime_type);

/// Schedule seconds count in a calendar of 31-day months and 372-day years that begins in 2020.
inline constexpr uint32_t seconds_per_day = 86400;
inline constexpr uint32_t seconds_per_month = 31 * seconds_per_day;
inline constexpr uint32_t seconds_per_year = 12 * seconds_per_month;
inline constexpr int first_schedule_year = 2020;
inline constexpr int schedule_years = 15;
inline constexpr int days_per_month = 31;
inline constexpr int days_per_year = 12 * days_per_month;
/// Number of slots for default items: the days of the longest unit, the endless one.
inline constexpr int default_slots = schedule_years * days_per_year;
