#include "import/cell_date.hpp"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <vector>

#include "checks/finding.hpp"
#include "import/folded_word.hpp"
#include "platform/syntax/text.hpp"
#include "platform/time/calendar_names.hpp"
#include "platform/time/civil_date.hpp"

namespace {

struct OrderName {
  std::string_view name;
  DateOrder order;
};

constexpr auto order_names = std::to_array<OrderName>({
    {"DMY", DateOrder::day_month_year},
    {"MDY", DateOrder::month_day_year},
    {"YMD", DateOrder::year_month_day},
});

/// A number of a date, as written.
struct DateNumber {
  int value;
  size_t digits;
};

constexpr int first_year = 1900;

std::optional<CellDate> valid_date(std::optional<int> year, int month, int day) {
  const bool is_valid = month >= 1 && month <= 12 && day >= 1 && day <= 31 &&
                        (!year || (*year >= first_year && *year <= 9999));
  return is_valid ? std::optional(CellDate{year, month, day}) : std::nullopt;
}

std::optional<int> year_of(const DateNumber& number) {
  constexpr int century = 2000;
  return number.digits == 2   ? std::optional(century + number.value)
         : number.digits == 4 ? std::optional(number.value)
                              : std::nullopt;
}

/// The date that the numbers are in that order.
std::optional<CellDate> date_in_order(const std::vector<DateNumber>& numbers, DateOrder order) {
  const bool has_year = numbers.size() == 3;
  const bool year_first = order == DateOrder::year_month_day;
  const bool day_first = order == DateOrder::day_month_year;
  const size_t first = has_year && year_first ? 1 : 0;
  const DateNumber& month = numbers[first + (day_first ? 1 : 0)];
  const DateNumber& day = numbers[first + (day_first ? 0 : 1)];
  if (month.digits > 2 || day.digits > 2) {
    return std::nullopt;
  }
  if (!has_year) {
    return valid_date(std::nullopt, month.value, day.value);
  }
  const std::optional<int> year = year_of(numbers[year_first ? 0 : 2]);
  return year ? valid_date(year, month.value, day.value) : std::nullopt;
}

std::string date_text(const CellDate& date) {
  return std::string(month_names.at(static_cast<size_t>(*date.month) - 1)) + " " +
         std::to_string(date.day) + (date.year ? " " + std::to_string(*date.year) : "");
}

std::optional<CellDate> date_of_parts(std::string_view text, const std::vector<DateNumber>& numbers,
                                      std::optional<DateOrder> order, std::string& problem) {
  if (numbers.size() == 3 && numbers.front().digits == 4) {
    return date_in_order(numbers, DateOrder::year_month_day);
  }
  if (order) {
    return date_in_order(numbers, *order);
  }
  // Nobody writes a month before its day with points.
  if (text.find('.') != std::string_view::npos &&
      (numbers.size() == 2 || numbers.back().digits == 4)) {
    return date_in_order(numbers, DateOrder::day_month_year);
  }
  std::optional<CellDate> found;
  std::string_view name;
  for (const OrderName& candidate : order_names) {
    const auto date = date_in_order(numbers, candidate.order);
    if (date && found && *date != *found) {
      problem = quoted_cell(text) + " could be " + date_text(*found) + " or " + date_text(*date) +
                "; say which with --dates " + std::string(name) + " or --dates " +
                std::string(candidate.name);
      return std::nullopt;
    }
    if (date && !found) {
      found = date;
      name = candidate.name;
    }
  }
  return found;
}

/// Days are counted from 30 December 1899.
std::optional<CellDate> date_of_serial_number(int number) {
  constexpr int first = 36526;  // 1 January 2000
  constexpr int last = 73415;   // 31 December 2100
  if (number < first || number > last) {
    return std::nullopt;
  }
  const int64_t days = days_from_civil(2000, 1, 1) + number - first;
  int year = 2000;
  while (days_from_civil(year + 1, 1, 1) <= days) {
    ++year;
  }
  int month = 1;
  while (days_from_civil(year, month, 1) + length_of_month(year, month) <= days) {
    ++month;
  }
  return CellDate{year, month, static_cast<int>(days - days_from_civil(year, month, 1)) + 1};
}

std::optional<CellDate> date_of_one_number(std::string_view text) {
  const int number = number_at_front(text);
  if (text.size() <= 2) {
    return number >= 1 && number <= 31 ? std::optional(CellDate{std::nullopt, std::nullopt, number})
                                       : std::nullopt;
  }
  if (text.size() == 8) {
    return valid_date(number / 10000, number / 100 % 100, number % 100);
  }
  return text.size() == 5 ? date_of_serial_number(number) : std::nullopt;
}

/// The numbers between the separators, all of which must be the same.
std::vector<DateNumber> numbers_of(std::string_view text) {
  std::vector<DateNumber> numbers;
  char separator = 0;
  while (true) {
    const size_t digits = std::min(text.find_first_not_of("0123456789"), text.size());
    if (digits == 0 || digits > 4) {
      return {};
    }
    numbers.push_back({number_at_front(text.substr(0, digits)), digits});
    text.remove_prefix(digits);
    if (text.empty()) {
      return numbers;
    }
    if (separator != 0 && text.front() != separator) {
      return {};
    }
    separator = text.front();
    text.remove_prefix(1);
    if (text.empty() && separator == '.') {
      return numbers;  // "5.3."
    }
  }
}

}  // namespace

std::optional<DateOrder> find_date_order(std::string_view name) {
  for (const OrderName& known : order_names) {
    if (upper_case(name) == known.name) {
      return known.order;
    }
  }
  return std::nullopt;
}

std::optional<CellDate> read_numeric_date(std::string_view text, std::optional<DateOrder> order,
                                          std::string& problem) {
  const std::string_view whole = text.substr(0, text.find('.'));
  const std::string_view number =
      whole.size() == 5 ? whole : text.substr(0, text.find_last_not_of('.') + 1);
  if (!number.empty() && number.find_first_not_of("0123456789") == std::string_view::npos) {
    return date_of_one_number(number);
  }
  const std::vector<DateNumber> numbers = numbers_of(text);
  return numbers.size() == 2 || numbers.size() == 3 ? date_of_parts(text, numbers, order, problem)
                                                    : std::nullopt;
}

int length_of_month(int year, int month) {
  const int next_year = month == 12 ? year + 1 : year;
  return static_cast<int>(days_from_civil(next_year, month % 12 + 1, 1) -
                          days_from_civil(year, month, 1));
}

CellDate day_after(const CellDate& date) {
  const int year = date.year.value_or(0);
  const int month = date.month.value_or(1);
  if (date.day < length_of_month(year, month)) {
    return {year, month, date.day + 1};
  }
  return month == 12 ? CellDate{year + 1, 1, 1} : CellDate{year, month + 1, 1};
}

int weekday_of(const CellDate& date) {
  const int64_t days = days_from_civil(date.year.value_or(0), date.month.value_or(1), date.day);
  return static_cast<int>(((days + 4) % 7 + 7) % 7);  // 1970-01-01: Thursday
}
