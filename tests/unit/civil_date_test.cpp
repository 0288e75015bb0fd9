#include "platform/time/civil_date.hpp"

#include <gtest/gtest.h>

namespace {

constexpr int64_t days_of_400_years = 400 * 365 + 97;

TEST(CivilDate, TheYear2000BeganAfterThirtyYearsWithSevenLeapDays) {
  EXPECT_EQ(days_from_civil(1970, 1, 1), 0);
  EXPECT_EQ(days_from_civil(2000, 1, 1), 30 * 365 + 7);
}

TEST(CivilDate, TheCalendarRepeatsEvery400YearsAlsoBeforeTheYearZero) {
  for (int year = -801; year <= 801; ++year) {
    EXPECT_EQ(days_from_civil(year, 3, 1) + days_of_400_years, days_from_civil(year + 400, 3, 1))
        << year;
    EXPECT_EQ(days_from_civil(year, 2, 28) + days_of_400_years, days_from_civil(year + 400, 2, 28))
        << year;
  }
}

}  // namespace
