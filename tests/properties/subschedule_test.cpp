#include "schedule/subschedules.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>

#include "properties/local_times.hpp"
#include "properties/plain_subschedules.hpp"
#include "properties/quiet.hpp"
#include "properties/random_items.hpp"
#include "properties/repair_checks.hpp"
#include "properties/scratch_folder.hpp"
#include "properties/seeds.hpp"
#include "schedule/block_announce.hpp"
#include "schedule/run_options.hpp"
#include "schedule/schedule_reader.hpp"
#include "schedule/unit_times.hpp"
#include "support/zone.hpp"

namespace {

constexpr std::array<const char*, 4> files = {"a.sched", "b.sched", "c.sched", "d.sched"};

/// A schedule file with those items, all of them in bare schedule seconds.
std::string file_of(std::string_view type, const std::vector<ScheduleItem>& items) {
  std::string text =
      "*" + std::string(type) + "\nglobal default = loops/" + std::string(type) + ".mp4\n";
  for (const ScheduleItem& item : items) {
    text += "{\nitem = " + item.item + "\nstart = " + std::to_string(item.start) +
            "\nend = " + std::to_string(item.end) + "\n}\n";
  }
  return text;
}

/// Lets some items name schedule files, which need not exist.
void name_files(Random& random, const ScratchFolder& folder, std::vector<ScheduleItem>& items) {
  for (ScheduleItem& item : items) {
    if (random.chance(25)) {
      item.item = folder.path_of(random.pick(files));
    }
  }
}

std::unique_ptr<Schedule> random_outer(Random& random, const ScratchFolder& folder) {
  const auto frame = random_frame(random);
  std::vector<ScheduleItem> items = random_items(random, frame->unit_length);
  name_files(random, folder, items);
  auto outer = with_items(*frame, items);
  repair(*outer);
  return outer;
}

void write_random_files(Random& random, const ScratchFolder& folder) {
  for (const char* file : files) {
    const ScheduleType& type = random.pick(schedule_types().first(5));
    std::vector<ScheduleItem> items = random_items(random, type.unit_length);
    items.resize(std::min<size_t>(items.size(), 12));
    name_files(random, folder, items);
    folder.write(file, file_of(type.text, items));
  }
}

bool names_file(const ScheduleItem& item) {
  return item.item.ends_with(".sched");
}

std::string complaint_about_keys(const Schedule& schedule) {
  for (const auto& [start, item] : schedule.schedule) {
    if (start != item.start || as_signed(item.start) > as_signed(item.end)) {
      return "key " + std::to_string(start) + " of the item " + std::to_string(item.start) + "-" +
             std::to_string(item.end);
    }
  }
  return {};
}

/// Every item but those that name schedules stays as it is, and what comes lies where one was.
std::string complaint_about_surroundings(const Schedule& before, const Schedule& after) {
  for (const auto& [start, item] : before.schedule) {
    const auto found = after.schedule.find(start);
    if (!names_file(item) &&
        (found == after.schedule.end() || !is_same_item(found->second, item))) {
      return "the item at " + std::to_string(start) + " is lost or changed";
    }
  }
  for (const auto& [start, item] : after.schedule) {
    const auto behind = before.schedule.upper_bound(start);
    const ScheduleItem& place = std::prev(behind)->second;
    const bool is_patched = names_file(place) && !is_same_item(place, item);
    if (is_patched && (item.end > place.end || item.start >= item.end)) {
      return "the patched item at " + std::to_string(start) + " is too long or empty";
    }
    if (!is_patched && place.start != start) {
      return "the item at " + std::to_string(start) + " comes from nowhere";
    }
  }
  return {};
}

/// Patches in until nothing changes, as often as the driver does.
std::string complaint_about_patching(Schedule& outer) {
  const KeptErrors errors;
  PreparedSubschedules subschedules;
  for (int level = 0; level < 10; ++level) {
    const auto before = std::make_unique<Schedule>(outer);
    const bool is_patched = patch_in_subschedules(outer, subschedules);
    std::string complaint = complaint_about_keys(outer);
    if (complaint.empty() && outer.blocks.empty()) {
      complaint = complaint_about_surroundings(*before, outer);
    }
    if (complaint.empty() && !is_patched && outer.blocks.empty() &&
        !is_same_listing(*before, outer)) {
      complaint = "a pass that patched nothing changed the schedule";
    }
    if (!complaint.empty()) {
      return complaint + "\nbefore:\n" + listing_of(*before) + "after:\n" + listing_of(outer);
    }
    if (!is_patched) {
      break;
    }
  }
  return {};
}

TEST(SubscheduleProperties, PatchedItemsStayInTheirSpanAndTheOthersAsTheyAre) {
  const ScratchFolder folder;
  for_each_seed(50, [&](uint64_t seed) -> std::string {
    Random random(seed);
    const std::string name = random_zone(random);
    const Zone zone(name.c_str());
    write_random_files(random, folder);
    const auto outer = random_outer(random, folder);
    const time_t report_time = random_report_time(random);
    compute_unit_times(*outer, report_time);
    if (random.chance(50)) {
      for (const ScheduleItem& item : random_items(random, outer->unit_length)) {
        outer->blocks[item.start] = {item.start, item.end, "Block", "block"};
      }
      block_announce_subst(*outer);
    }
    const std::string complaint = complaint_about_patching(*outer);
    return complaint.empty() ? "" : name + " " + std::to_string(report_time) + ": " + complaint;
  });
}

/// What a pass over the schedule says and whether it patched something in.
struct PassResult {
  bool is_patched;
  std::string said;
};

template <typename Pass>
PassResult run_pass(Pass pass) {
  KeptErrors errors;
  const bool is_patched = pass();
  return {is_patched, errors.text()};
}

/// Random outer schedules of all types whose default items and programmes name schedules, which
/// name each other, with blocks over them.
std::unique_ptr<Schedule> random_channel(Random& random, const ScratchFolder& folder) {
  write_random_files(random, folder);
  for (const char* file : files) {
    if (random.chance(30)) {
      const ScheduleType& type = random.pick(schedule_types().first(random.chance(80) ? 4 : 5));
      folder.write(file, "*" + std::string(type.text) +
                             "\nglobal default = " + folder.path_of(random.pick(files)) + "\n");
    }
  }
  auto outer = random_outer(random, folder);
  for (const ScheduleItem& item : random_items(random, outer->unit_length)) {
    if (random.chance(20)) {
      static constexpr std::array<const char*, 3> announces = {"block", "items", ""};
      outer->blocks[item.start] = {item.start, item.end, "Block", random.pick(announces)};
    }
  }
  return outer;
}

TEST(SubscheduleProperties, EachScheduleIsPreparedOnceAndNothingShowsIt) {
  const ScratchFolder folder;
  for_each_seed(60, [&](uint64_t seed) -> std::string {
    Random random(seed);
    const std::string name = random_zone(random);
    const Zone zone(name.c_str());
    const auto outer = random_channel(random, folder);
    compute_unit_times(*outer, random_report_time(random));
    run_options.debug_patch = random.chance(30);
    block_announce_subst(*outer);
    const auto plain = std::make_unique<Schedule>(*outer);
    PreparedSubschedules subschedules;
    std::string complaint;
    for (int level = 0; level < 2 && complaint.empty(); ++level) {
      const PassResult result =
          run_pass([&] { return patch_in_subschedules(*outer, subschedules); });
      const PassResult expected = run_pass([&] { return patch_in_subschedules_plainly(*plain); });
      if (result.is_patched != expected.is_patched || result.said != expected.said ||
          !is_same_listing(*outer, *plain)) {
        complaint = name + ", level " + std::to_string(level) + ": said\n" + result.said +
                    "instead of\n" + expected.said + "items\n" + listing_of(*outer) +
                    "instead of\n" + listing_of(*plain);
      }
    }
    run_options.debug_patch = false;
    return complaint;
  });
}

/// What a subschedule without clock changes airs in an item of a day's or a week's schedule: its
/// unit up to the last second, and that second by itself. An item as long as both units is not
/// aired, as its end is its start.
ScheduleItems expected_pieces(const Schedule& outer, const Schedule& subschedule,
                              const ScheduleItem& item) {
  const uint64_t unit = subschedule.unit_length;
  const uint64_t base = item.start / unit * unit;
  const uint64_t last_second = base + unit - 1;
  ScheduleItems pieces;
  const auto add = [&](ScheduleItem piece, uint64_t from, uint64_t to) {
    const uint64_t a = base + piece.start;
    const uint64_t b = base + piece.end;
    piece.start = std::max(a, from);
    piece.end = std::min(b, to);
    if (piece.start < piece.end && b - a < outer.unit_length) {
      pieces[piece.start] = piece;
    }
  };
  for (const auto& [start, piece] : subschedule.schedule) {
    add(piece, item.start, std::min(item.end, last_second));
    add(piece, std::max(item.start, last_second), item.end);
  }
  return pieces;
}

TEST(SubscheduleProperties, AWeekAirsADayAsItsFileSays) {
  const Zone utc("UTC");
  const ScratchFolder folder;
  for_each_seed(150, [&](uint64_t seed) -> std::string {
    Random random(seed);
    const bool is_weekly = random.chance(70);
    const bool is_sub_weekly = is_weekly && random.chance(30);
    auto outer = std::make_unique<Schedule>();
    outer->type = is_weekly ? "weekly" : "daily";
    outer->unit_length = find_schedule_type(outer->type)->unit_length;
    std::vector<ScheduleItem> items = random_items(random, outer->unit_length);
    std::erase_if(items, [&](const ScheduleItem& item) { return item.end > outer->unit_length; });
    name_files(random, folder, items);
    outer = with_items(*outer, items);
    repair(*outer);
    compute_unit_times(*outer, random_report_time(random));

    const ScheduleType* type = find_schedule_type(is_sub_weekly ? "weekly" : "daily");
    std::vector<ScheduleItem> sub_items = random_items(random, type->unit_length);
    std::erase_if(sub_items,
                  [&](const ScheduleItem& item) { return item.end > type->unit_length; });
    for (const char* file : files) {
      folder.write(file, file_of(type->text, sub_items));
    }
    Schedule subschedule;
    read_schedule_file(subschedule, folder.path_of("a.sched").c_str());
    repair(subschedule);

    const auto expected = std::make_unique<Schedule>(*outer);
    for (const auto& [start, item] : outer->schedule) {
      if (names_file(item)) {
        expected->schedule.erase(start);
        expected->schedule.merge(expected_pieces(*outer, subschedule, item));
      }
    }
    const auto before = std::make_unique<Schedule>(*outer);
    {
      const KeptErrors errors;
      PreparedSubschedules subschedules;
      patch_in_subschedules(*outer, subschedules);
    }
    return is_same_listing(*outer, *expected)
               ? ""
               : "subschedule:\n" + listing_of(subschedule) + "before:\n" + listing_of(*before) +
                     "after:\n" + listing_of(*outer) + "expected:\n" + listing_of(*expected);
  });
}

}  // namespace
