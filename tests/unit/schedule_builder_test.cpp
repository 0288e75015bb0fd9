#include <gtest/gtest.h>

#include <string>

#include "schedule/schedule_reader.hpp"

namespace {

/// The effects of all parts but comments: the line, "+" when the part was used, the slot of a
/// stored default, and the times of an item or block that ended, "-" for none.
std::string effects_of(Schedule& schedule, const std::string& content) {
  ScheduleFile file(content);
  ScheduleBuilder builder(schedule);
  std::string text;
  const auto time = [](uint64_t seconds) {
    return seconds == no_time ? std::string("-") : std::to_string(seconds);
  };
  for (SchedulePart part; file.next(part);) {
    const PartEffect effect = builder.add_part(part);
    text += std::to_string(part.line) + (effect.is_used ? "+" : "");
    if (part.section == SectionKind::defaults && part.kind == PartKind::entry) {
      text += " slot " + std::to_string(effect.default_slot);
    } else if (part.kind == PartKind::section_end || part.kind == PartKind::cut_off) {
      text += " " + time(effect.start) + " to " + time(effect.end);
    }
    text += "\n";
  }
  builder.finish();
  return text;
}

TEST(ScheduleBuilder, TakesTheFirstTypeAlone) {
  Schedule schedule;
  EXPECT_EQ(effects_of(schedule, "*interval\n*daily\n*weekly\ndefaults, day of the week {\n}\n"),
            "1\n2+\n3\n4\n5 - to -\n");
  EXPECT_EQ(schedule.type, "daily");
  EXPECT_EQ(schedule.unit_length, seconds_per_day);
}

TEST(ScheduleBuilder, TakesTheTypeFromADefaultsSection) {
  Schedule schedule;
  EXPECT_EQ(effects_of(schedule,
                       "defaults, by date {\nday = a\n}\ndefaults, of the day {\nday = b\n"
                       "day [x] = c\nmon = d\n}\n"),
            "1\n2 slot 0\n3 - to -\n4+\n5+ slot 0\n6 slot 0\n7 slot 0\n8 - to -\n");
  EXPECT_EQ(schedule.type, "daily");
  EXPECT_EQ(schedule.defaults[0], "b");
}

TEST(ScheduleBuilder, TellsTheTimesOfItemsThatItStoresAndDrops) {
  Schedule schedule;
  EXPECT_EQ(effects_of(schedule,
                       "*daily\n{\nitem = a\nstart = 1:00\nend = 2:00\n}\n{\nstart = 3:00\n"
                       "item = b\n}\n{\nend = 4:00\nstart = 3:00\nitem = c"),
            "1+\n2\n3\n4\n5\n6+ 3600 to 7200\n7\n8\n9\n10 10800 to -\n11\n12\n13\n14\n"
            "14+ 10800 to 14400\n");
  ASSERT_EQ(schedule.schedule.size(), 2U);
  EXPECT_EQ(schedule.schedule.at(3600).item, "a");
  EXPECT_EQ(schedule.schedule.at(10800).item, "c");
}

TEST(ScheduleBuilder, LeavesNothingOfOneItemToTheNext) {
  Schedule schedule;
  effects_of(schedule,
             "*daily\n{\nitem = a\nlabel = l\nevent id = 5\nblock = b\nitem duration = 9\n"
             "end = 2:00\n}\n{\nitem = c\nstart = 1:00\nend = 2:00\n}\n");
  ASSERT_EQ(schedule.schedule.size(), 1U);
  const ScheduleItem& item = schedule.schedule.at(3600);
  EXPECT_EQ(item.label + item.event_id + item.block, "");
  EXPECT_EQ(item.duration, -1.0);
}

TEST(ScheduleBuilder, ReadsATimeAgainOnceTheTypeIsKnown) {
  Schedule schedule;
  const std::string item = "{\nitem = a\nstart = 1:00\nend = 1:00\n}\n";
  EXPECT_EQ(effects_of(schedule, item + "*daily\n" + item),
            "1\n2\n3\n4\n5 - to -\n6+\n7\n8\n9\n10\n11+ 3600 to 3600\n");
}

TEST(ScheduleBuilder, TakesNothingOfOneTimeForTheNext) {
  Schedule schedule;
  EXPECT_EQ(effects_of(schedule,
                       "*daily\n{\nitem = a\nstart = 45000.5\nend = 45001\n}\n"
                       "{\nitem = b\nstart = x\nend = x\n}\n"
                       "{\nitem = c\nstart = 45001\nend = 45000.5\n}\n"),
            "1+\n2\n3\n4\n5\n6+ 45001 to 45001\n7\n8\n9\n10\n11 - to -\n"
            "12\n13\n14\n15\n16+ 45001 to 45001\n");
}

TEST(ScheduleBuilder, KeepsATimeOfABlockThatAnInvalidOneFollows) {
  Schedule schedule;
  EXPECT_EQ(effects_of(schedule,
                       "*daily\nschedule block {\nblock = b\nstart = 1:00\nend = 2:00\n"
                       "start = x\nend = y\n}\n{\nitem = a\nstart = 1:00\nend = 2:00\n"
                       "start = x\n}\n"),
            "1+\n2\n3\n4\n5\n6\n7\n8+ 3600 to 7200\n9\n10\n11\n12\n13\n14 - to 7200\n");
}

TEST(ScheduleBuilder, FillsInWhatTheFileLeavesOpen) {
  Schedule schedule;
  EXPECT_EQ(effects_of(schedule, "global default: /a\nGlobal default = /b\n"), "1+\n2\n");
  EXPECT_EQ(schedule.type, "weekly");
  EXPECT_EQ(schedule.defaults[6], "/a");
  EXPECT_EQ(schedule.unit_length, 7 * seconds_per_day);
}

}  // namespace
