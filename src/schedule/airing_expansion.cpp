#include "schedule/airing_expansion.hpp"

#include <ctime>

#include "schedule/schedule_time.hpp"

namespace {

bool is_same_day(const std::tm& a, const std::tm& b) {
  return a.tm_year == b.tm_year && a.tm_yday == b.tm_yday;
}

/// Moves a local time to the midnight after it, as the C library normalises it.
time_t move_to_next_midnight(std::tm& cursor) {
  cursor.tm_sec = 0;
  cursor.tm_min = 0;
  cursor.tm_hour = 0;
  ++cursor.tm_mday;
  cursor.tm_isdst = -1;
  return mktime(&cursor);
}

}  // namespace

std::vector<ScheduleItem> expand_airing(Schedule& schedule, ScheduleItem& item) {
  std::vector<ScheduleItem> pieces;
  const time_t start = schedule_seconds_to_time(schedule, item.start);
  const time_t end = schedule_seconds_to_time(schedule, item.end);
  std::tm cursor{};
  std::tm last{};
  if (end != -1 && end >= start && localtime_r(&start, &cursor) != nullptr &&
      localtime_r(&end, &last) != nullptr) {
    time_t reached = start;
    while (!is_same_day(cursor, last)) {
      const time_t midnight = move_to_next_midnight(cursor);
      if (midnight <= reached) {
        break;  // a zone that left a whole day out leads back; the rest is one piece
      }
      reached = midnight;
      ScheduleItem& piece = pieces.emplace_back(item);
      piece.end = time_to_schedule_seconds(schedule, midnight);
      item.start = piece.end;
    }
  }
  pieces.push_back(item);
  return pieces;
}
