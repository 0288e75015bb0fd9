#include "schedule/airing_expansion.hpp"

#include <algorithm>
#include <ctime>
#include <optional>

#include "platform/local_stretches.hpp"
#include "schedule/schedule_time.hpp"

namespace {

constexpr int64_t a_day = static_cast<int64_t>(seconds_per_day);

bool is_earlier_day(const std::tm& a, const std::tm& b) {
  return a.tm_year < b.tm_year || (a.tm_year == b.tm_year && a.tm_yday < b.tm_yday);
}

/// The midnight behind the day of `reached`, as the C library normalises it. Where that would not
/// lead on, since clocks show it earlier or never, the first second of a later date.
std::optional<time_t> next_midnight(time_t reached, const std::tm& local, long unit_offset) {
  const int64_t second_of_day = local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec;
  const int64_t civil = civil_seconds(local) - second_of_day + a_day;
  const std::vector<LocalStretch> stretches = stretches_around(civil, civil);
  const std::optional<time_t> midnight = normalised_time_of_civil(stretches, civil, unit_offset);
  if (midnight && *midnight > reached) {
    return midnight;
  }
  for (const LocalStretch& stretch : stretches) {
    const time_t first = std::max({stretch.first, civil - stretch.ahead, reached + 1});
    if (first <= stretch.last) {
      return first;
    }
  }
  return std::nullopt;
}

}  // namespace

std::vector<ScheduleItem> expand_airing(Schedule& schedule, ScheduleItem& item) {
  std::vector<ScheduleItem> pieces;
  const time_t start = schedule_seconds_to_time(schedule, item.start);
  const time_t end = schedule_seconds_to_time(schedule, item.end);
  const time_t unit_start = schedule.unit_start;
  std::tm unit{};
  std::tm local{};
  std::tm last{};
  if (end != -1 && end >= start && localtime_r(&unit_start, &unit) != nullptr &&
      localtime_r(&start, &local) != nullptr && localtime_r(&end, &last) != nullptr) {
    time_t reached = start;
    while (is_earlier_day(local, last)) {
      const std::optional<time_t> midnight = next_midnight(reached, local, unit.tm_gmtoff);
      if (!midnight || localtime_r(&*midnight, &local) == nullptr) {
        break;
      }
      reached = *midnight;
      ScheduleItem& piece = pieces.emplace_back(item);
      piece.end = broken_down_to_schedule_seconds(schedule.type, local);
      item.start = piece.end;
    }
  }
  pieces.push_back(item);
  return pieces;
}
