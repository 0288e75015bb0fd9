// The schedule reader and the repairs that need no more than the schedule.

#include <string>

#include "fuzz/fuzz_target.hpp"
#include "fuzz/scratch_folder.hpp"
#include "platform/media/mime_type.hpp"
#include "schedule/complete_schedule.hpp"
#include "schedule/schedule_reader.hpp"

namespace {

void require_order(const ScheduleItems& items) {
  uint64_t covered_until = 0;
  for (const auto& [start, item] : items) {
    require(start == item.start, "an item stands under its start");
    require(as_signed(item.start) <= as_signed(item.end), "no item is reversed");
    require(covered_until <= start, "no item overlaps the one before it");
    covered_until = item.end;
  }
}

size_t length_of_all(const ScheduleItems& items) {
  size_t length = 0;
  for (const auto& [start, item] : items) {
    length += item.item.size() + item.label.size() + item.event_id.size();
  }
  return length;
}

}  // namespace

void run_target(std::string_view input) {
  static const ScratchFolder folder;
  folder.write("channel.schedule", input);
  const std::string path = folder.path() + "/channel.schedule";
  Schedule schedule;
  require(read_schedule_file(schedule, path.c_str()), "a file that is there is read");
  for (const auto& [start, item] : schedule.schedule) {
    require(start == item.start && start != no_time, "an item stands under its start");
  }
  for (const auto& [start, block] : schedule.blocks) {
    require(start == block.start && start != no_time, "a block stands under its start");
  }
  require(length_of_all(schedule.schedule) <= input.size(), "no text comes out of nowhere");

  remove_reversed_items(schedule);
  require(fix_schedule_file(schedule), "overlaps can always be clipped");
  require_order(schedule.schedule);

  const std::string_view mime_type = sniff_schedule(input);
  require(mime_type.empty() || find_schedule_type_of_mime_type(mime_type) != nullptr,
          "a schedule's MIME type is that of a type");
}
