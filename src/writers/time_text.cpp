#include "writers/time_text.hpp"

#include <array>
#include <cstdint>

#include "platform/time/calendar.hpp"

namespace {

constexpr std::array<const char*, 12> month_names = {
    "January", "February", "March",     "April",   "May",      "June",
    "July",    "August",   "September", "October", "November", "December"};
constexpr std::array<const char*, 7> day_names = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                  "Thursday", "Friday", "Saturday"};
constexpr std::array<const char*, 4> suffixes = {"th", "st", "nd", "rd"};

std::string format_local(time_t t, const char* format) {
  std::tm tm{};
  std::array<char, 256> text{};
  if (localtime_r(&t, &tm) == nullptr) {
    return {};
  }
  return {text.data(), std::strftime(text.data(), text.size(), format, &tm)};
}

template <size_t count>
const char* name_in(const std::array<const char*, count>& names, int index) {
  return index >= 0 && index < static_cast<int>(count) ? names[static_cast<size_t>(index)] : "";
}

}  // namespace

std::string time_to_iso8601(time_t t) {
  return format_local(t, "%FT%T%z");
}

std::string time_to_date(time_t t) {
  return format_local(t, "%F");
}

std::string time_to_clock(time_t t) {
  return format_local(t, "%R");
}

std::string minutes_between(time_t start, time_t end) {
  const time_t seconds = calendar_start_of_minute(end) - calendar_start_of_minute(start);
  return std::to_string(static_cast<uint64_t>(seconds / 60));
}

const char* month_name(int month) {
  return name_in(month_names, month);
}

const char* day_name(int weekday) {
  return name_in(day_names, weekday);
}

const char* ordinal_suffix(int day) {
  const int last_two = day % 100;
  const int last = day % 10;
  const bool is_teen = last_two >= 10 && last_two <= 19;
  return !is_teen && last >= 1 && last <= 3 ? suffixes[static_cast<size_t>(last)] : suffixes[0];
}
