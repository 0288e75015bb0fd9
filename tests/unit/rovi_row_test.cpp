#include <gtest/gtest.h>

#include "writers/rovi_writer.hpp"

namespace {

std::string field(const RoviRow& row, size_t column) {
  return rovi_row_fields(row, "K1").at(column - 1);
}

TEST(RoviRow, AnEpisodeCountsFromZero) {
  RoviRow row;
  EXPECT_EQ(field(row, 13), "");
  row.episode_number = 0;
  EXPECT_EQ(field(row, 13), "0");
}

TEST(RoviRow, AYearAndASeasonCountFromOne) {
  RoviRow row;
  row.release_year = row.season_number = 0;
  EXPECT_EQ(field(row, 19), "");
  EXPECT_EQ(field(row, 21), "");
  row.release_year = row.season_number = 1;
  EXPECT_EQ(field(row, 19), "1");
  EXPECT_EQ(field(row, 21), "1");
}

}  // namespace
