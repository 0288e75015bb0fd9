#include <utility>

#include "platform/system/messages.hpp"
#include "schedule/complete_schedule.hpp"
#include "schedule/schedule_reader.hpp"
#include "schedule/subschedules.hpp"
#include "schedule/watchdog.hpp"

namespace {

/// These and their placements take about 200 MB. Schedules beyond this number are not kept; they
/// are read again each time.
constexpr size_t most_kept_items = 500000;

bool read_and_complete(Schedule& schedule, const std::string& path) {
  schedule.blocks.clear();  // the reader keeps blocks and the global default
  schedule.global_default.clear();
  if (!read_schedule_file(schedule, path.c_str())) {
    fail_run_for_shortage("Unable to open %s: %s", path.c_str());
    return false;
  }
  std::string error;  // what a run would end with; here the item stays as it is
  return complete_schedule(schedule, error);
}

PreparedSubschedule prepare(Schedule& schedule, const std::string& path) {
  PreparedSubschedule prepared;
  const DiagnosticsRecord record;
  prepared.is_prepared = read_and_complete(schedule, path);
  prepared.type = schedule.type;
  prepared.items.swap(schedule.schedule);
  prepared.diagnostics = record.text();
  return prepared;
}

}  // namespace

PreparedSubschedule* PreparedSubschedules::prepared(const std::string& path) {
  auto found = by_path_.find(path);
  if (found != by_path_.end()) {
    arm_watchdog();  // as preparing it did
    print_diagnostic("%s", found->second.diagnostics.c_str());
  } else {
    if (!read_into_) {
      read_into_ = std::make_unique<Schedule>();
    }
    PreparedSubschedule fresh = prepare(*read_into_, path);
    constexpr size_t bytes_like_an_item = 400;
    const size_t items = fresh.items.size() + fresh.diagnostics.size() / bytes_like_an_item;
    if (kept_items_ + items > most_kept_items) {
      by_path_.clear();
      kept_items_ = 0;
    }
    kept_items_ += items;
    found = by_path_.emplace(path, std::move(fresh)).first;
  }
  return found->second.is_prepared ? &found->second : nullptr;
}
