#include <set>
#include <string>
#include <utility>
#include <vector>

#include "checks/checks.hpp"
#include "platform/time/local_stretches.hpp"
#include "platform/time/local_text.hpp"
#include "schedule/schedule_time.hpp"
#include "schedule/unit_times.hpp"

namespace {

/// Items that have this finding, by start. Each gets it once.
using KnownChanges = std::set<std::pair<uint64_t, FindingKind>>;

bool is_repeated(const std::vector<LocalStretch>& stretches, time_t t) {
  for (size_t i = 1; i < stretches.size(); ++i) {
    const LocalStretch& before = stretches[i - 1];
    const LocalStretch& after = stretches[i];
    const int64_t back = before.ahead - after.ahead;
    if (back > 0 && t > before.last - back && t < after.first + back) {
      return true;
    }
  }
  return false;
}

void add_clock_change(FindingKind kind, const WrittenSection& item, UnitClock& clock,
                      KnownChanges& known, FileFindings& found) {
  const uint64_t noon = item.start / seconds_per_day * seconds_per_day + seconds_per_day / 2;
  const std::tm* tm = clock.breakdown(clock.time_of(noon));
  const bool is_known = !known.emplace(item.start, kind).second;
  if (tm == nullptr || is_known) {
    return;
  }
  const std::string date = local_text(*tm, "%F");
  found.add(kind, item.place_of(ScheduleKey::start),
            kind == FindingKind::skipped_hour
                ? "the clocks skip this time on " + date + ", so it does not air"
                : "the clocks show this time twice on " + date + "; it airs at one of the two");
}

void check_unit(const WrittenSchedule& written, const Unit& unit, KnownChanges& known,
                FileFindings& found) {
  const std::vector<LocalStretch> stretches = local_stretches(unit.start, unit.end);
  if (stretches.size() < 2) {
    return;
  }
  UnitClock clock(written.schedule.type, unit.start);
  for (const auto& [start, number] : written.items.by_start) {
    const WrittenSection& item = written.items.all[number];
    const time_t t = clock.time_of(start);
    if (t == -1) {
      add_clock_change(FindingKind::skipped_hour, item, clock, known, found);
    } else if (t >= unit.start && t <= unit.end && is_repeated(stretches, t)) {
      add_clock_change(FindingKind::repeated_hour, item, clock, known, found);
    }
  }
}

}  // namespace

void check_clock_changes(const WrittenSchedule& written, time_t report_time, FileFindings& found) {
  constexpr int units = 3;
  KnownChanges known;
  time_t t = report_time;
  for (int i = 0; i < units; ++i) {
    const Unit unit = unit_of(written.schedule.type, t);
    check_unit(written, unit, known, found);
    t = unit.end + 1;
  }
}
