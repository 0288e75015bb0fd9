#include "writers/formats.hpp"

#include <gtest/gtest.h>

#include <limits>

#include "support/zone.hpp"

namespace {

TEST(JsonWriter, ATimeAsJsonHasItsTextAndItsNumber) {
  const Zone berlin("Europe/Berlin");
  EXPECT_EQ(json_time(1709645400),
            R"({"iso8601": "2024-03-05T14:30:00+0100", "unix": 1709645400})");
  EXPECT_EQ(json_time(-1), R"({"iso8601": "1970-01-01T00:59:59+0100", "unix": -1})");
  EXPECT_EQ(json_time(std::numeric_limits<time_t>::max()),
            R"({"iso8601": "", "unix": 9.2233720368547758e+18})");
}

}  // namespace
