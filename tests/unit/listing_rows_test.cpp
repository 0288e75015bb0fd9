#include "writers/listing_rows.hpp"

#include <gtest/gtest.h>

#include <memory>

#include "schedule/unit_times.hpp"
#include "support/zone.hpp"

namespace {

constexpr time_t midnight = 1709251200;  // 2024-03-01
constexpr time_t year_of_ten_digits = 100'000'000'000'000'000;

class ListingRows : public testing::Test {
 protected:
  ListingRows() {
    schedule_->type = "weekly";
    compute_unit_times(*schedule_, midnight);
  }

  const Zone utc_{"UTC"};
  std::unique_ptr<Schedule> schedule_ = std::make_unique<Schedule>();
};

TEST_F(ListingRows, HalfAMinuteRoundsUp) {
  UnitClock clock(*schedule_);
  EXPECT_EQ(rounded_to_minute(clock, midnight + 29), midnight);
  EXPECT_EQ(rounded_to_minute(clock, midnight + 30), midnight + 60);
  EXPECT_EQ(rounded_to_minute(clock, year_of_ten_digits), year_of_ten_digits + 30);
}

}  // namespace
