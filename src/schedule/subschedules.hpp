#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "schedule/report_window.hpp"
#include "schedule/schedule.hpp"
#include "schedule/schedule_time.hpp"

/// Where an item of a subschedule falls in the outer schedule.
struct Placement {
  const ScheduleItem* item;
  uint64_t start;  ///< schedule seconds of the outer schedule
  uint64_t end;
};

/// The placements of all items of a subschedule. They hold for one value of its beginning.
struct Placements {
  UnitClock::Beginning beginning;
  std::vector<Placement> in_order;    ///< by start in the subschedule; not those without a position
  std::vector<uint64_t> latest_ends;  ///< for each placement, the latest end up to it
  std::vector<uint64_t> first_starts;  ///< for each placement, the first start from it on
};

/// A schedule file that items name, read and completed as far as this does not depend on the item.
/// Default items already fill its gaps.
struct PreparedSubschedule {
  std::string type;
  ScheduleItems items;
  std::string diagnostics;  ///< printed on standard error while it was prepared
  bool is_prepared = false;
  std::optional<Placements> placements;
};

/// The subschedules of a run. In a week, hundreds of items may name one schedule; in an endless
/// schedule, thousands.
class PreparedSubschedules {
 public:
  /// The schedule in the file at that path, or null when it cannot be prepared. Messages of its
  /// preparation are printed again on each call. The pointer is valid until the next call.
  PreparedSubschedule* prepared(const std::string& path);

 private:
  std::unordered_map<std::string, PreparedSubschedule> by_path_;
  size_t kept_items_ = 0;
  /// Reused for each file, so that the memory of its texts is reused too. Null before the first
  /// one. Not a plain member, because it is too large for the stack.
  std::unique_ptr<Schedule> read_into_;
};

/// Replaces each item whose file is itself a schedule by the items which that schedule airs within
/// the item's span. It does this for one level; call it again for schedules that the new items
/// name. True when an item was replaced. Of media that air only outside the window, no metadata is
/// read if their type can be told without it. Arms the watchdog and cancels it at the end.
bool patch_in_subschedules(Schedule& schedule, PreparedSubschedules& subschedules,
                           const ReportWindow& window = all_time);

/// Levels of schedules in schedules that a run patches in.
inline constexpr int most_subschedule_levels = 10;

/// Replaces subschedules level by level, at most `most_subschedule_levels`. Items that name deeper
/// ones stay, with a warning on standard error; the same happens when a schedule names itself.
/// Cancels the watchdog at the end.
void patch_all_subschedules(Schedule& schedule, const ReportWindow& window = all_time);
