#include "schedule/airing_expansion.hpp"

#include <ctime>
#include <optional>

#include "platform/time/local_stretches.hpp"
#include "schedule/schedule_time.hpp"

namespace {

/// A number for a local date. It grows from day to day.
int64_t date_number(const std::tm& tm) {
  return int64_t{tm.tm_year} * 366 + tm.tm_yday;
}

/// The midnight at the end of that local day, normalised as the C library does it. If clocks never
/// show that midnight, the result is the first second of a later date.
std::optional<time_t> next_midnight(const std::tm& local, long offset) {
  const int64_t second_of_day = local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec;
  const int64_t civil = civil_seconds(local) - second_of_day + seconds_per_day;
  return normalised_time_of_civil(stretches_around(civil, civil), civil, offset);
}

}  // namespace

std::vector<uint64_t> airing_cuts(UnitClock& clock, const ScheduleItem& item) {
  std::vector<uint64_t> cuts;
  const time_t start = clock.time_of(item.start);
  const time_t end = clock.time_of(item.end);
  const std::tm* local = end != -1 && end >= start ? clock.breakdown(end) : nullptr;
  if (local == nullptr) {
    return cuts;
  }
  const int64_t last_date = date_number(*local);
  local = clock.breakdown(start);
  while (local != nullptr && date_number(*local) < last_date) {
    const std::optional<time_t> midnight = next_midnight(*local, clock.offset());
    if (!midnight) {
      break;
    }
    cuts.push_back(clock.schedule_seconds_of(*midnight));
    local = clock.breakdown(*midnight);
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
