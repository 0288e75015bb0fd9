// The grammar of written times.

#include <string>

#include "fuzz/fuzz_target.hpp"
#include "platform/time/parse_time.hpp"

namespace {

bool is_within(int value, int lowest, int highest) {
  return lowest <= value && value <= highest;
}

bool are_in_range(const std::tm& tm) {
  return is_within(tm.tm_mon, 0, 11) && is_within(tm.tm_mday, 1, 31) &&
         is_within(tm.tm_wday, 0, 6) && is_within(tm.tm_hour, 0, 24) &&
         is_within(tm.tm_min, 0, 59) && is_within(tm.tm_sec, 0, 59);
}

}  // namespace

void run_target(std::string_view input) {
  std::tm tm{};
  long microseconds = 0;
  if (!schedule_parse_time(input, tm, microseconds)) {
    return;
  }
  require(are_in_range(tm), "the parts of a time are in range");
  require(tm.tm_hour < 24 || (tm.tm_min == 0 && tm.tm_sec == 0), "nothing is later than 24:00");
  require(0 <= microseconds && microseconds <= 999999, "microseconds are less than a second");

  std::tm again{};
  long microseconds_again = 0;
  const std::string surrounded = " \t" + std::string(input) + " ";
  require(schedule_parse_time(surrounded, again, microseconds_again),
          "blanks around a time change nothing");
  require(again.tm_hour == tm.tm_hour && again.tm_mday == tm.tm_mday && again.tm_mon == tm.tm_mon &&
              again.tm_year == tm.tm_year && again.tm_wday == tm.tm_wday &&
              microseconds_again == microseconds,
          "blanks around a time change no part of it");
}
