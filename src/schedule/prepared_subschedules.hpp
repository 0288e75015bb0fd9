#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "schedule/schedule.hpp"
#include "schedule/schedule_time.hpp"

/// Where an item of a subschedule falls in the outer schedule.
struct Placement {
  const ScheduleItem* item;
  uint64_t start;  ///< schedule seconds of the outer schedule
  uint64_t end;
};

/// Where all of them fall while the subschedule has one and the same beginning.
struct Placements {
  UnitClock::Beginning beginning;
  std::vector<Placement> in_order;     ///< of the subschedule; without those that fall nowhere
  std::vector<uint64_t> latest_ends;   ///< of the placements up to each
  std::vector<uint64_t> first_starts;  ///< of the placements from each on
};

/// What is left of a schedule file that items name, once it is read and completed as far as that
/// does not depend on the item. Its default items are in the gaps by then.
struct PreparedSubschedule {
  std::string type;
  ScheduleItems items;
  std::string said;  ///< on standard error while it was prepared
  bool is_prepared = false;
  std::optional<Placements> placements;
};

/// The subschedules of a run. A week may hand hundreds of items to one schedule, and an endless
/// schedule thousands.
class PreparedSubschedules {
 public:
  /// The schedule in the file at that path, or null when it cannot be prepared. What was said on
  /// standard error is said again each time. Valid until the next call.
  PreparedSubschedule* prepared(const std::string& path);

 private:
  std::unordered_map<std::string, PreparedSubschedule> by_path_;
  size_t kept_items_ = 0;
  /// For one file after the other, whose default items then find room for their texts. Null until
  /// there is one; not in the record itself, to spare the stack.
  std::unique_ptr<Schedule> read_into_;
};
