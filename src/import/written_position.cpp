#include "import/written_position.hpp"

#include <array>
#include <cstdio>

#include "platform/syntax/text.hpp"
#include "platform/time/calendar_names.hpp"
#include "writers/append.hpp"

namespace {

struct PaddedDate {
  int year;
  int month;  ///< 1 to 12
  int day;    ///< 1 to 31
};

PaddedDate padded_date(uint32_t day) {
  return {first_schedule_year + static_cast<int>(day / days_per_year),
          static_cast<int>(day / days_per_month % 12) + 1,
          static_cast<int>(day % days_per_month) + 1};
}

std::string short_name_of(std::string_view name) {
  return std::string(name.substr(0, short_name_length));
}

std::string day_and_clock(uint32_t day, uint32_t second, const ScheduleType& type) {
  const std::string text = day_text(day, type);
  return text + (text.empty() ? "" : " ") + clock_text(second);
}

}  // namespace

std::string clock_text(uint32_t second_of_day) {
  const uint32_t second = second_of_day % 60;
  std::string clock;
  append_padded(clock, second_of_day / 3600, 2);
  clock += ':';
  append_padded(clock, second_of_day / 60 % 60, 2);
  if (second != 0) {
    clock += ':';
    append_padded(clock, second, 2);
  }
  return clock;
}

std::string day_text(uint32_t day, const ScheduleType& type) {
  const PaddedDate date = padded_date(day);
  switch (type.day_name) {
    case DayName::weekday:
      return short_name_of(weekday_names.at(day % weekday_names.size()));
    case DayName::day_of_month:
      return "day " + std::to_string(day + 1);
    case DayName::day_of_year:
      return short_name_of(month_names.at(static_cast<size_t>(date.month) - 1)) + " " +
             std::to_string(date.day);
    case DayName::date: {
      std::array<char, 32> text{};
      std::snprintf(text.data(), text.size(), "%04d-%02d-%02d", date.year, date.month, date.day);
      return text.data();
    }
    case DayName::none:
    case DayName::only_day:
    case DayName::number:
      break;
  }
  return {};
}

std::string day_key(uint32_t day, const ScheduleType& type) {
  const PaddedDate date = padded_date(day);
  std::string month_and_day = "m" + std::to_string(date.month) + "d" + std::to_string(date.day);
  switch (type.day_name) {
    case DayName::weekday:
      return lower_case(day_text(day, type));
    case DayName::day_of_month:
      return "dom" + std::to_string(day + 1);
    case DayName::day_of_year:
      return month_and_day;
    case DayName::date:
      return "y" + std::to_string(date.year) + month_and_day;
    case DayName::none:
    case DayName::only_day:
    case DayName::number:
      break;
  }
  return "day";
}

std::string start_text(uint64_t position, const ScheduleType& type) {
  return day_and_clock(static_cast<uint32_t>(position / seconds_per_day),
                       static_cast<uint32_t>(position % seconds_per_day), type);
}

std::string end_text(uint64_t position, const ScheduleType& type) {
  if (position == 0 || position % seconds_per_day != 0) {
    return start_text(position, type);
  }
  return day_and_clock(static_cast<uint32_t>(position / seconds_per_day - 1), seconds_per_day,
                       type);
}
