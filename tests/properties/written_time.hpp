#pragma once

#include <string>
#include <string_view>

#include "properties/random.hpp"
#include "schedule/schedule.hpp"

/// A time as an operator may write it, and what it says.
struct WrittenTime {
  std::string text;
  bool is_valid = true;
  int year = 2020;
  int month = 1;
  int day = 1;
  int weekday = 0;  ///< 0 is Sunday
  int hour = 0;
  int minute = 0;
  int second = 0;
  bool rounds_up = false;  ///< half a second or more behind it
};

/// A time in one of all forms, mostly one that suits the type; now and then none at all.
WrittenTime random_written_time(Random& random, std::string_view type);

/// Schedule seconds of that time in a schedule of that type, as the reader stores them.
uint64_t position_of(const WrittenTime& time, std::string_view type);
