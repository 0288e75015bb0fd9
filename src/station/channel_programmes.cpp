#include "station/channel_programmes.hpp"

#include <algorithm>
#include <limits>
#include <map>
#include <utility>

#include "metadata/item_metadata.hpp"
#include "metadata/place_schedule.hpp"
#include "platform/time/calendar.hpp"
#include "schedule/schedule_time.hpp"
#include "schedule/unit_times.hpp"
#include "schedule/watchdog.hpp"

namespace {

/// The first second of the day that comes that many days after the day of `t`.
time_t start_of_day_after(time_t t, int days) {
  time_t start = calendar_start_of_day(t);
  for (; days > 0; --days) {
    start = calendar_end_of_day(start) + 1;
  }
  for (; days < 0; ++days) {
    start = calendar_start_of_day(start - 1);
  }
  return start;
}

struct ItemInfo {
  ItemMetadata metadata;
  ProgrammeTexts texts;
};

ItemInfo info_of(const ScheduleItem& item) {
  const OpenedMetadata opened = open_item_metadata(item);
  return {extract_item_metadata(opened.set), texts_of_item(item, opened.set)};
}

/// Goes through the units of a prepared schedule one after the other.
class UnitWalk {
 public:
  UnitWalk(Schedule& schedule, std::string path)
      : schedule_(schedule), prepared_items_(schedule.schedule), path_(std::move(path)) {}

  /// Adds what is announced in [begin, end) of the unit that holds `begin`. Returns the unit's end.
  time_t add_unit(time_t begin, time_t end, std::vector<Programme>& programmes) {
    Schedule& schedule = schedule_;
    schedule.schedule = prepared_items_;
    arm_watchdog();
    place_schedule(schedule, begin, path_);
    arm_watchdog();  // place_schedule cancelled it, and media files are still to be read
    const time_t unit_end = schedule.unit_end;
    UnitClock clock(schedule);
    std::map<time_t, Programme> by_start;  // if two start in one second, the later one is kept
    for (const auto& [start, item] : schedule.schedule) {
      const time_t t = clock.time_of(start);
      // The unit's last second belongs to no report.
      if (t == -1 || t < begin || t >= std::min<time_t>(end, unit_end)) {
        continue;
      }
      const time_t stop = clock.time_of(item.end);
      if (stop == t) {
        continue;
      }
      add_item(item, t, stop, t == schedule.unit_start && stop > unit_end, by_start);
    }
    for (auto& [start, programme] : by_start) {
      programmes.push_back(std::move(programme));
    }
    return unit_end;
  }

 private:
  void add_item(const ScheduleItem& item, time_t start, time_t stop, bool fills_unit,
                std::map<time_t, Programme>& by_start) {
    const ItemInfo info = info_of(item);
    by_start.erase(start);
    if (derive_announce(info.metadata, item) > 0) {
      by_start.emplace(start, Programme{start, stop > start ? stop : -1, item.item, item.label,
                                        item.event_id, fills_unit, info.texts});
    }
  }

  Schedule& schedule_;
  const ScheduleItems prepared_items_;  ///< before any unit has changed them
  const std::string path_;
};

/// Whether both are one programme that the end of a unit cut in two.
bool is_cut_in_two(const Programme& one, const Programme& other, time_t seam) {
  return one.stop == seam && other.start == seam && one.path == other.path &&
         one.label == other.label && one.event_id == other.event_id && !one.fills_unit &&
         !other.fills_unit;
}

void append_unit(std::vector<Programme>& programmes, std::vector<Programme> unit, time_t seam) {
  auto first = unit.begin();
  if (!programmes.empty() && first != unit.end() &&
      is_cut_in_two(programmes.back(), *first, seam)) {
    programmes.back().stop = first->stop;
    ++first;
  }
  programmes.insert(programmes.end(), std::make_move_iterator(first),
                    std::make_move_iterator(unit.end()));
}

/// A programme ends at the start of the next one at the latest, and exactly there if its end is not
/// known.
void settle_stops(std::vector<Programme>& programmes) {
  for (size_t i = 0; i + 1 < programmes.size(); ++i) {
    Programme& programme = programmes[i];
    const time_t next = programmes[i + 1].start;
    programme.stop = programme.stop == -1 ? next : std::min(programme.stop, next);
  }
}

}  // namespace

GuideTimes times_of_span(const GuideSpan& span, time_t now) {
  const time_t begin = start_of_day_after(now, span.offset);
  return {begin, start_of_day_after(begin, span.days)};
}

std::vector<Programme> programmes_of_schedule(Schedule& schedule, const std::string& path,
                                              const GuideTimes& times, bool with_previous) {
  // The programme on air when the span begins has started in this unit or at the seam before it.
  time_t cursor = unit_of(schedule.type, times.begin - 1).start;
  UnitWalk walk(schedule, path);
  std::vector<Programme> programmes;
  while (cursor <= times.end) {
    std::vector<Programme> found;
    // A unit that begins when the span ends may hold the second part of a cut programme.
    const time_t unit_end = walk.add_unit(cursor, std::max(times.end, cursor + 1), found);
    append_unit(programmes, std::move(found), cursor);
    cursor = unit_end + 1;
  }
  cancel_watchdog();
  settle_stops(programmes);
  std::erase_if(programmes, [&](const Programme& programme) {
    const bool is_before = programme.start < times.begin;
    return programme.start >= times.end || !has_four_digit_year(programme.start) ||
           (is_before && (!with_previous || programme.stop <= times.begin));
  });
  return programmes;
}
