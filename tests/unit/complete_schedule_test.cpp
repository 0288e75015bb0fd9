#include "schedule/complete_schedule.hpp"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "schedule/watchdog.hpp"

namespace {

void add(Schedule& schedule, uint64_t start, uint64_t end, const char* path) {
  ScheduleItem& item = schedule.schedule[start];
  item.start = start;
  item.end = end;
  item.item = path;
}

/// "start-end path" of each item, a default item with a star.
std::string listing(const Schedule& schedule) {
  std::ostringstream text;
  for (const auto& [start, item] : schedule.schedule) {
    text << item.start << '-' << item.end << ' ' << item.item << (item.is_default ? "*\n" : "\n");
  }
  return text.str();
}

Schedule three_days() {
  Schedule schedule;
  schedule.type = "weekly";
  schedule.unit_length = 3 * seconds_per_day;
  return schedule;
}

class Patch : public testing::Test {
 protected:
  void TearDown() override { cancel_watchdog(); }
};

TEST_F(Patch, KeepsDaysApartWhileTheUnitCountsNoDays) {
  Schedule schedule = three_days();
  schedule.defaults.fill("same");
  patch_schedule_default_items(schedule);
  EXPECT_EQ(listing(schedule), "0-86400 same*\n86400-172800 same*\n172800-259200 same*\n");
}

TEST_F(Patch, RunsOverDaysWithTheSameDefaultOnceTheUnitCountsThem) {
  Schedule schedule = three_days();
  schedule.unit_days = 3;
  schedule.defaults[0] = "a";
  schedule.defaults[1] = "a";
  schedule.defaults[2] = "b";
  patch_schedule_default_items(schedule);
  EXPECT_EQ(listing(schedule), "0-172800 a*\n172800-259200 b*\n");
}

TEST_F(Patch, RunsOverDaysWithoutDefaultUpToTheFirstThatHasOne) {
  Schedule schedule = three_days();
  schedule.unit_days = 3;
  schedule.defaults[2] = "b";
  patch_schedule_default_items(schedule);
  EXPECT_EQ(listing(schedule), "0-172800 *\n172800-259200 b*\n");
}

TEST_F(Patch, DoesNothingToAScheduleWithoutUnit) {
  Schedule schedule;
  add(schedule, 5, 6, "x");
  patch_schedule_default_items(schedule);
  EXPECT_EQ(listing(schedule), "5-6 x\n");
}

TEST_F(Patch, ChangesNothingTheSecondTime) {
  Schedule schedule = three_days();
  add(schedule, 100, 100, "empty");
  add(schedule, 90000, 200000, "long");
  patch_schedule_default_items(schedule);
  const std::string once = listing(schedule);
  patch_schedule_default_items(schedule);
  EXPECT_EQ(listing(schedule), once);
  EXPECT_EQ(once,
            "0-100 *\n100-100 empty\n101-86400 *\n86400-90000 *\n90000-200000 long\n"
            "200000-259200 *\n");
}

using RepairDeathTest = Patch;

TEST_F(RepairDeathTest, AKeyThatIsNotItsItemsStartEndsTheProcess) {
  Schedule schedule = three_days();
  add(schedule, 0, 10, "a");
  add(schedule, 20, 30, "b");
  schedule.schedule[20].start = 21;
  EXPECT_DEATH(fix_schedule_file(schedule),
               "^nv8x_schedule_to_xml:[0-9]+: bool fix_schedule_file\\(Schedule&\\): Assertion "
               "`\\(unsigned long long\\)next->start == \\(unsigned long long\\)scin->first' "
               "failed\\.");
  schedule.schedule[0].start = 1;
  EXPECT_DEATH(fix_schedule_file(schedule),
               "Assertion `\\(unsigned long long\\)cur->start == \\(unsigned long "
               "long\\)sci->first' failed\\.");
  EXPECT_DEATH(patch_schedule_default_items(schedule),
               "bool patch_schedule_default_items\\(Schedule&\\): Assertion `\\(unsigned long "
               "long\\)sci->first == \\(unsigned long long\\)sci->second.start' failed\\.");
}

TEST_F(RepairDeathTest, AReversedItemEndsThePatching) {
  Schedule schedule = three_days();
  add(schedule, 20, 10, "a");
  EXPECT_DEATH(patch_schedule_default_items(schedule),
               "Assertion `sci->second.start <= sci->second.end' failed\\.");
}

}  // namespace
