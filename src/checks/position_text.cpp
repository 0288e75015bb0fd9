#include "checks/position_text.hpp"

#include <array>
#include <cstdio>

#include "platform/time/calendar_names.hpp"

std::string short_weekday(int weekday) {
  return std::string(weekday_names.at(static_cast<size_t>(weekday)).substr(0, 3));
}

std::string a_schedule_of(std::string_view type) {
  const bool has_vowel = std::string_view("aeiou").find(type.front()) != std::string_view::npos;
  return (has_vowel ? "an " : "a ") + std::string(type) + " schedule";
}

std::string written_position(uint64_t position, const ScheduleType& type) {
  const uint64_t day = position / seconds_per_day;
  const auto second = static_cast<unsigned>(position % seconds_per_day);
  std::string text;
  switch (type.day_name) {
    case DayName::weekday:
      text = short_weekday(static_cast<int>(day % 7)) + " ";
      break;
    case DayName::day_of_month:
      text = "day " + std::to_string(day + 1) + " ";
      break;
    case DayName::date:
      text = std::to_string(first_schedule_year + static_cast<int>(day / days_per_year)) + " ";
      [[fallthrough]];
    case DayName::day_of_year:
      text = std::string(month_names.at(day / days_per_month % 12).substr(0, 3)) + " " +
             std::to_string(day % days_per_month + 1) + (text.empty() ? " " : " " + text);
      break;
    case DayName::none:
    case DayName::only_day:
    case DayName::number:
      break;
  }
  std::array<char, 16> clock{};
  std::snprintf(clock.data(), clock.size(), second % 60 == 0 ? "%02u:%02u" : "%02u:%02u:%02u",
                second / 3600, second / 60 % 60, second % 60);
  return text + clock.data();
}

std::string written_end(uint64_t position, const ScheduleType& type) {
  if (position == 0 || position % seconds_per_day != 0) {
    return written_position(position, type);
  }
  std::string text = written_position(position - seconds_per_day, type);
  return text.replace(text.size() - 5, 5, "24:00");
}

std::string unit_text(const ScheduleType& type) {
  if (type.day_name == DayName::date) {
    return "years " + std::to_string(first_schedule_year) + " to " +
           std::to_string(first_schedule_year + schedule_years - 1);
  }
  return type.text == "daily" ? "day"
                              : std::to_string(type.unit_length / seconds_per_day) + " days";
}
