#include "station/now_and_next.hpp"

#include <memory>
#include <utility>

#include "metadata/item_metadata.hpp"
#include "schedule/schedule_time.hpp"
#include "station/channel_programmes.hpp"
#include "station/channel_schedule.hpp"

namespace {

constexpr time_t day = 24L * 60 * 60;

std::optional<Programme> announced_programme(const ScheduleItem& item, time_t start, time_t stop) {
  const OpenedMetadata opened = open_item_metadata(item);
  if (derive_announce(extract_item_metadata(opened.set), item) == 0) {
    return std::nullopt;
  }
  return Programme{
      start, stop, item.item, item.label, item.event_id, false, texts_of_item(item, opened.set)};
}

/// Of the unit alone. Only the items near `now` are opened.
NowAndNext in_unit(const Schedule& schedule, time_t now) {
  NowAndNext found;
  UnitClock clock(schedule);
  for (const auto& [position, item] : schedule.schedule) {
    const time_t start = clock.time_of(position);
    const time_t stop = clock.time_of(item.end);
    if (start == -1 || start >= schedule.unit_end || stop <= now || stop <= start) {
      continue;
    }
    if (start <= now) {
      found.now = announced_programme(item, start, stop);
    } else if (auto next = announced_programme(item, start, stop)) {
      found.next = std::move(next);
      break;
    }
  }
  return found;
}

/// Whether the programme may be a part of one that the end of a unit cuts in two.
bool is_at_seam(const Schedule& schedule, const Programme& programme) {
  return programme.start <= schedule.unit_start || programme.stop >= schedule.unit_end;
}

/// Across the ends of units.
NowAndNext in_next_day(const std::string& path, time_t now) {
  const auto schedule = std::make_unique<Schedule>();
  std::string error;
  NowAndNext found;
  if (!read_channel_schedule(*schedule, path, error)) {
    return found;
  }
  for (Programme& programme : programmes_of_schedule(*schedule, path, {now, now + day}, true)) {
    if (programme.start <= now) {
      found.now = std::move(programme);
    } else {
      found.next = std::move(programme);
      break;
    }
  }
  return found;
}

}  // namespace

NowAndNext now_and_next(const Schedule& schedule, const std::string& path, time_t now) {
  NowAndNext found = in_unit(schedule, now);
  if (!found.next || is_at_seam(schedule, *found.next) ||
      (found.now && is_at_seam(schedule, *found.now))) {
    return in_next_day(path, now);
  }
  if (found.next->start >= now + day) {
    found.next.reset();
  }
  return found;
}
