#include "schedule/schedule_reader.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "properties/quiet.hpp"
#include "properties/random_items.hpp"
#include "properties/repair_checks.hpp"
#include "properties/schedule_text.hpp"
#include "properties/scratch_folder.hpp"
#include "properties/seeds.hpp"
#include "properties/shrink.hpp"

namespace {

std::string blocks_of(const Schedule& schedule) {
  std::string text;
  for (const auto& [start, block] : schedule.blocks) {
    text += std::to_string(start) + ": " + std::to_string(block.start) + "-" +
            std::to_string(block.end) + " " + block.block + ", " + block.announce + "\n";
  }
  return text;
}

bool is_same_default(const Schedule& read, const Schedule& meant) {
  for (size_t slot = 0; slot < static_cast<size_t>(default_slots); ++slot) {
    if (read.defaults[slot] != meant.defaults[slot]) {
      return false;
    }
  }
  return true;
}

std::string complaint_about_reading(const Schedule& read, const Schedule& meant) {
  if (read.type != meant.type || read.unit_length != meant.unit_length) {
    return "the type is " + read.type + " and not " + meant.type;
  }
  if (read.global_default != meant.global_default || !is_same_default(read, meant)) {
    return "other default items";
  }
  if (blocks_of(read) != blocks_of(meant)) {
    return "blocks read:\n" + blocks_of(read) + "meant:\n" + blocks_of(meant);
  }
  return is_same_listing(read, meant)
             ? ""
             : "items read:\n" + listing_of(read) + "meant:\n" + listing_of(meant);
}

std::string complaint_about_parts(const ScratchFolder& folder, const std::vector<TextPart>& parts) {
  folder.write("schedule", text_of(parts));
  auto read = std::make_unique<Schedule>();
  {
    const KeptErrors errors;
    if (!read_schedule_file(*read, folder.path_of("schedule").c_str())) {
      return "the file cannot be read";
    }
  }
  std::string complaint = complaint_about_reading(*read, *schedule_of(parts));
  return complaint.empty() ? complaint_about_repair(*read) : complaint;
}

TEST(ReaderProperties, AFileIsReadAsItIsMeantAndRepairedWithoutLoss) {
  const ScratchFolder folder;
  for_each_seed(600, [&](uint64_t seed) -> std::string {
    Random random(seed);
    const std::vector<TextPart> parts = random_schedule_text(random);
    if (complaint_about_parts(folder, parts).empty()) {
      return {};
    }
    const std::vector<TextPart> fewest = shrink(
        parts, [&](const auto& rest) { return !complaint_about_parts(folder, rest).empty(); });
    return complaint_about_parts(folder, fewest) + "\nof:\n" + text_of(fewest);
  });
}

}  // namespace
