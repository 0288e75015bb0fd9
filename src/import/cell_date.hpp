#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The order of the numbers in a date.
enum class DateOrder { day_month_year, month_day_year, year_month_day };

/// The order that DMY, MDY or YMD names.
std::optional<DateOrder> find_date_order(std::string_view name);

/// A date in a table. Year and month may be missing.
struct CellDate {
  std::optional<int> year;
  std::optional<int> month;  ///< 1 to 12
  int day = 1;               ///< 1 to 31, whatever the month
  bool operator==(const CellDate&) const = default;
};

/// Reads a date of numbers: "2026-03-05", "5.3.2026", "03/05/2026", "5/3", "20260305", the number
/// of a day as spreadsheets count them ("46086"), or a day of the month ("5"). Without an order a
/// date that could be two is not read: `problem` then says so.
std::optional<CellDate> read_numeric_date(std::string_view text, std::optional<DateOrder> order,
                                          std::string& problem);

/// The last day of the month of a real calendar.
int length_of_month(int year, int month);

/// The next date of the calendar. All parts must be there.
CellDate day_after(const CellDate& date);

/// The weekday of a date that has all parts (0 is Sunday).
int weekday_of(const CellDate& date);
