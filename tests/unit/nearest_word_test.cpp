#include "platform/syntax/nearest_word.hpp"

#include <gtest/gtest.h>

#include <array>

namespace {

TEST(NearestWord, CountsTwoNeighboursThatChangedPlacesAsOneMistake) {
  // "suxx" is as far from "sutn" as "sunt" would be if each letter counted.
  constexpr std::array<std::string_view, 2> words = {"suxx", "sunt"};
  EXPECT_EQ(nearest_word("sutn", words), "sunt");
}

TEST(NearestWord, OfWordsAsNearTakesTheFirst) {
  constexpr std::array<std::string_view, 2> words = {"suxn", "sunt"};
  EXPECT_EQ(nearest_word("sutn", words), "suxn");
}

TEST(NearestWord, TakesNoWordThatIsFarAway) {
  constexpr std::array<std::string_view, 2> words = {"start", "end"};
  EXPECT_EQ(nearest_word("satr", words), "start");
  EXPECT_EQ(nearest_word("sr", words), std::nullopt);
  EXPECT_EQ(nearest_word("", words), std::nullopt);
}

}  // namespace
