#include "writers/time_text.hpp"

#include <array>
#include <cstdint>

#include "platform/time/calendar.hpp"
#include "platform/time/calendar_names.hpp"
#include "platform/time/local_text.hpp"

namespace {

constexpr std::array<const char*, 4> suffixes = {"th", "st", "nd", "rd"};

template <size_t count>
const char* name_in(const std::array<std::string_view, count>& names, int index) {
  return index >= 0 && index < static_cast<int>(count) ? names[static_cast<size_t>(index)].data()
                                                       : "";
}

}  // namespace

std::string time_to_iso8601(time_t t) {
  return local_text(t, "%FT%T%z");
}

std::string time_to_date(time_t t) {
  return local_text(t, "%F");
}

std::string time_to_clock(time_t t) {
  return local_text(t, "%R");
}

std::string minutes_between(time_t start, time_t end) {
  const time_t seconds = calendar_start_of_minute(end) - calendar_start_of_minute(start);
  return std::to_string(static_cast<uint64_t>(seconds / 60));
}

const char* month_name(int month) {
  return name_in(month_names, month);
}

const char* day_name(int weekday) {
  return name_in(weekday_names, weekday);
}

const char* ordinal_suffix(int day) {
  const int last_two = day % 100;
  const int last = day % 10;
  const bool is_teen = last_two >= 10 && last_two <= 19;
  return !is_teen && last >= 1 && last <= 3 ? suffixes[static_cast<size_t>(last)] : suffixes[0];
}
