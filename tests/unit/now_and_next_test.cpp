#include "station/now_and_next.hpp"

#include <gtest/gtest.h>

#include <ctime>
#include <string>

#include "fuzz/scratch_folder.hpp"
#include "metadata/place_schedule.hpp"
#include "station/channel_schedule.hpp"
#include "support/zone.hpp"

namespace {

constexpr time_t thursday_at_ten = 1772704800;  // Thursday, 5 March 2026, 10:00 UTC

/// The labels of what is on now and next; "-" stands for nothing.
std::string labels_of(const std::string& content) {
  const Zone zone("UTC");
  const ScratchFolder folder;
  folder.write("a.schedule", content);
  const std::string path = folder.path() + "/a.schedule";
  Schedule schedule;
  std::string error;
  EXPECT_TRUE(read_channel_schedule(schedule, path, error)) << error;
  place_schedule(schedule, thursday_at_ten, path);
  const NowAndNext found = now_and_next(schedule, path, thursday_at_ten);
  return (found.now ? found.now->label : "-") + " " + (found.next ? found.next->label : "-");
}

std::string item(const std::string& label, const std::string& start, const std::string& end) {
  return "{\nitem = a.mp4\nlabel = " + label + "\nstart = " + start + "\nend = " + end + "\n}\n";
}

TEST(NowAndNext, AreOfTheNextDayAlone) {
  const std::string weekly = "*weekly\n" + item("A", "Thu 10:00", "Thu 11:00");
  EXPECT_EQ(labels_of(weekly + item("B", "Thu 11:00", "Thu 12:00")), "A B");
  EXPECT_EQ(labels_of(weekly + item("B", "Fri 09:59:59", "Fri 11:00")), "A B");
  EXPECT_EQ(labels_of(weekly + item("B", "Fri 10:00", "Fri 11:00")), "A -");
  EXPECT_EQ(labels_of("*weekly\n" + item("B", "Thu 09:00", "Thu 10:00")), "- -");
  EXPECT_EQ(labels_of("*weekly\n" + item("B", "Thu 10:00:01", "Thu 11:00")), "- B");
}

TEST(NowAndNext, AreFoundBehindTheEndOfTheUnit) {
  EXPECT_EQ(labels_of("*daily\n" + item("A", "09:00", "11:00")), "A A");
  EXPECT_EQ(labels_of("*daily\n" + item("A", "09:59:59", "11:00")), "A A");
  EXPECT_EQ(labels_of("*daily\n" + item("A", "10:00", "11:00")), "A -");
}

}  // namespace
