#include "properties/random_items.hpp"

#include <algorithm>
#include <iterator>
#include <sstream>
#include <string>

namespace {

/// A few names and the empty one, so that days share their default items.
std::string random_default(Random& random) {
  const uint64_t number = random.below(4);
  return number == 0 ? "" : "loops/" + std::to_string(number) + ".mp4";
}

int64_t random_length(Random& random, int64_t unit_length) {
  switch (random.below(8)) {
    case 0:
      return random.between(0, 1);
    case 1:
      return random.between(-3, 3);
    case 2:
    case 3:
      return random.between(1, 600);
    case 4:
    case 5:
      return random.between(600, 4 * 3600);
    case 6:
      return random.between(1, 3) * 86400 + random.between(-1, 1);
    default:
      return random.between(-unit_length, unit_length + 10);
  }
}

int64_t random_start(Random& random, int64_t unit_length, const std::vector<ScheduleItem>& items) {
  const int64_t nudge = random.between(-2, 2);
  switch (random.below(6)) {
    case 0:
      return random.between(0, unit_length / 86400) * 86400 + nudge;
    case 1:
      return unit_length + nudge;
    case 2:
      return nudge;
    case 3:
    case 4:
      if (!items.empty()) {
        const ScheduleItem& other = random.pick(items);
        return as_signed(random.chance(70) ? other.end : other.start) + nudge;
      }
      [[fallthrough]];
    default:
      return random.between(0, unit_length + unit_length / 20);
  }
}

}  // namespace

std::unique_ptr<Schedule> random_frame(Random& random) {
  auto schedule = std::make_unique<Schedule>();
  const ScheduleType& type = random.pick(schedule_types().first(5));
  schedule->type = type.text;
  schedule->unit_length = type.unit_length;
  const bool is_uniform = random.chance(30);
  const std::string uniform = random_default(random);
  for (size_t day = 0; day < default_slots; ++day) {
    schedule->defaults[day] = is_uniform ? uniform : random_default(random);
  }
  return schedule;
}

std::vector<ScheduleItem> random_items(Random& random, uint64_t unit_length) {
  const auto length = static_cast<int64_t>(unit_length);
  std::vector<ScheduleItem> items(random.chance(10) ? random.below(3) : random.below(60));
  std::vector<ScheduleItem> before;
  for (ScheduleItem& item : items) {
    const int64_t start = std::max<int64_t>(0, random_start(random, length, before));
    item.start = static_cast<uint64_t>(start);
    item.end =
        random.chance(2)
            ? no_time
            : static_cast<uint64_t>(std::max<int64_t>(0, start + random_length(random, length)));
    item.item = "clips/" + std::to_string(before.size()) + ".mp4";
    item.label = random.chance(50) ? "Label " + std::to_string(before.size()) : "";
    item.event_id = random.chance(20) ? "E" : "";
    item.duration = random.chance(50) ? static_cast<double>(random.below(4000)) : -1.0;
    before.push_back(item);
  }
  return items;
}

std::unique_ptr<Schedule> with_items(const Schedule& frame,
                                     const std::vector<ScheduleItem>& items) {
  auto schedule = std::make_unique<Schedule>(frame);
  for (const ScheduleItem& item : items) {
    schedule->schedule[item.start] = item;
  }
  return schedule;
}

std::string listing_of(const Schedule& schedule) {
  constexpr int64_t shown_fillers = 3;
  std::ostringstream text;
  text << schedule.type << '\n';
  for (auto it = schedule.schedule.begin(); it != schedule.schedule.end(); ++it) {
    const auto other = std::find_if(it, schedule.schedule.end(),
                                    [](const auto& entry) { return !entry.second.is_default; });
    const int64_t fillers = std::distance(it, other);
    if (fillers > shown_fillers) {
      text << "(" << fillers - shown_fillers << " default items)\n";
      std::advance(it, fillers - shown_fillers);
    }
    const ScheduleItem& item = it->second;
    text << as_signed(item.start) << '-' << as_signed(item.end) << ' ' << item.item
         << (item.is_default ? "*\n" : "\n");
  }
  return text.str();
}
