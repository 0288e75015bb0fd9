// What a schedule can say, a table can say.

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "import/export_table.hpp"
#include "import/read_table.hpp"
#include "import/schedule_text.hpp"
#include "import/table_reader.hpp"
#include "platform/syntax/schedule_types.hpp"
#include "properties/random.hpp"
#include "properties/seeds.hpp"
#include "schedule/schedule_reader.hpp"

namespace {

constexpr std::array<const char*, 5> types = {"daily", "weekly", "monthly", "yearly", "endless"};
constexpr std::array<const char*, 12> texts = {
    "news.mp4",      "media/a, b.mp4", "say \"hi\"", "x;y\tz", "Über uns",     "a = b",
    "#1 of the day", "Mon-Fri",        "18:00 \"\"", "type",   "} not an end", "'quoted'"};

uint64_t random_start(Random& random, uint64_t unit) {
  const uint64_t position = random.below(unit);
  return random.chance(60) ? position - position % 300 : position;
}

uint64_t random_end(Random& random, uint64_t start, uint64_t unit) {
  static constexpr std::array<uint64_t, 8> lengths = {1,     30,    1800,  3600,
                                                      21600, 86399, 86400, 200000};
  const uint64_t midnight = (start / seconds_per_day + 1) * seconds_per_day;
  const uint64_t end = random.chance(10) ? midnight : start + random.pick(lengths);
  return std::min(end, unit);
}

std::string maybe(Random& random) {
  return random.chance(40) ? random.pick(texts) : "";
}

std::unique_ptr<Schedule> random_schedule(Random& random) {
  auto schedule = std::make_unique<Schedule>();
  schedule->type = random.pick(types);
  const uint64_t unit = find_schedule_type(schedule->type)->unit_length;
  schedule->unit_length = unit;
  schedule->global_default = maybe(random);
  schedule->defaults.fill(schedule->global_default);
  for (uint64_t i = random.below(6); i > 0; --i) {
    schedule->defaults.at(random.below(unit / seconds_per_day)) = random.pick(texts);
  }
  for (uint64_t i = random.below(4); i > 0; --i) {
    const uint64_t start = random_start(random, unit);
    schedule->blocks[start] = {start, random_end(random, start, unit), random.pick(texts),
                               maybe(random)};
  }
  for (uint64_t i = random.below(20); i > 0; --i) {
    ScheduleItem item;
    item.start = random_start(random, unit);
    item.end = random_end(random, item.start, unit);
    item.item = random.pick(texts);
    item.label = maybe(random);
    item.block = maybe(random);
    item.event_id = maybe(random);
    item.duration = random.chance(50) ? -1 : static_cast<double>(random.below(900000)) / 7;
    schedule->schedule[item.start] = item;
  }
  return schedule;
}

/// The record, as far as a schedule file gives it.
std::string listing(const Schedule& schedule) {
  std::string out = schedule.type + ", " + schedule.global_default + "\n";
  for (size_t day = 0; day < schedule.defaults.size(); ++day) {
    if (schedule.defaults.at(day) != schedule.global_default) {
      out += "day " + std::to_string(day) + ": " + schedule.defaults.at(day) + "\n";
    }
  }
  for (const auto& [start, block] : schedule.blocks) {
    out += std::to_string(start) + "-" + std::to_string(block.end) + ": " + block.block + ", " +
           block.announce + "\n";
  }
  for (const auto& [start, item] : schedule.schedule) {
    out += std::to_string(start) + "-" + std::to_string(item.end) + ": " + item.item + ", " +
           item.label + ", " + item.block + ", " + item.event_id + ", " +
           std::to_string(item.duration) + "\n";
  }
  return out;
}

/// The schedule that the table makes, read back from its file. Null, with findings, on a mistake.
std::unique_ptr<Schedule> schedule_of_table(const std::string& text,
                                            std::vector<Finding>& findings) {
  const auto table = table_of_text(text, {}, findings);
  const auto header = table ? find_table_header(*table, {}, findings) : std::nullopt;
  const auto rules = header ? rules_of_table(*table, *header, {}, findings) : std::nullopt;
  if (!rules) {
    return nullptr;
  }
  const MadeSchedule made = read_table_rows(*rules, findings);
  const ScheduleText written = schedule_text(made, *rules, "table");
  auto schedule = std::make_unique<Schedule>();
  ScheduleFile file(std::string_view(written.text));
  ScheduleBuilder builder(*schedule);
  SchedulePart part;
  while (file.next(part)) {
    builder.add_part(part);
  }
  builder.finish();
  return findings.empty() ? std::move(schedule) : nullptr;
}

TEST(ImportProperties, ATableOfAScheduleMakesTheSameSchedule) {
  for_each_seed(400, [](uint64_t seed) -> std::string {
    Random random(seed);
    const auto meant = random_schedule(random);
    constexpr std::array<char, 3> separators = {',', ';', '\t'};
    std::vector<std::string> warnings;
    const std::string table = table_of(*meant, random.pick(separators), warnings);
    std::vector<Finding> findings;
    const auto read = schedule_of_table(table, findings);
    if (!read) {
      return text_of(FileFindings{"table", findings}, 3) + table;
    }
    if (listing(*read) != listing(*meant)) {
      return "read:\n" + listing(*read) + "meant:\n" + listing(*meant) + table;
    }
    const std::string again = table_of(*read, find_csv_separator(table), warnings);
    return again == table && warnings.empty() ? "" : "another table:\n" + again + table;
  });
}

}  // namespace
