#include "schedule/airing_expansion.hpp"

#include <algorithm>
#include <ctime>
#include <optional>

#include "platform/time/local_stretches.hpp"
#include "schedule/schedule_time.hpp"

namespace {

constexpr int64_t a_day = seconds_per_day;

/// A number for a local date. It grows from day to day.
int64_t date_number(const std::tm& tm) {
  return int64_t{tm.tm_year} * 366 + tm.tm_yday;
}

/// The midnight at the end of the day of `reached`, normalised as the C library does it. If clocks
/// show that midnight earlier or never, the result is the first second of a later date.
std::optional<time_t> next_midnight(time_t reached, const std::tm& local, long offset) {
  const int64_t second_of_day = local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec;
  const int64_t civil = civil_seconds(local) - second_of_day + a_day;
  const std::vector<LocalStretch> stretches = stretches_around(civil, civil);
  const std::optional<time_t> midnight = normalised_time_of_civil(stretches, civil, offset);
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

std::vector<uint64_t> airing_cuts(UnitClock& clock, const ScheduleItem& item) {
  std::vector<uint64_t> cuts;
  time_t reached = clock.time_of(item.start);
  const time_t end = clock.time_of(item.end);
  const std::tm* last = end != -1 && end >= reached ? clock.breakdown(end) : nullptr;
  const int64_t last_date = last != nullptr ? date_number(*last) : 0;
  const std::tm* local = last != nullptr ? clock.breakdown(reached) : nullptr;
  while (local != nullptr && date_number(*local) < last_date) {
    const std::optional<time_t> midnight = next_midnight(reached, *local, clock.offset());
    if (!midnight) {
      break;
    }
    reached = *midnight;
    cuts.push_back(clock.schedule_seconds_of(reached));
    local = clock.breakdown(reached);
  }
  return cuts;
}

std::vector<ScheduleItem> expand_airing(const Schedule& schedule, ScheduleItem& item) {
  UnitClock clock(schedule);
  std::vector<ScheduleItem> pieces;
  for (const uint64_t cut : airing_cuts(clock, item)) {
    pieces.push_back(item);
    pieces.back().end = cut;
    item.start = cut;
  }
  pieces.push_back(item);
  return pieces;
}
