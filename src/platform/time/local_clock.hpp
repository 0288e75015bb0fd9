#pragma once

#include <ctime>

#include "platform/time/local_stretches.hpp"

/// Converts calendar times to local broken-down times. It remembers the day of the last one: unless
/// a clock change falls on that day, subtraction gives hour, minute and second. All fields are the
/// same as those of localtime.
class LocalClock {
 public:
  /// Null when the time has no local date. Valid until the next call.
  const std::tm* breakdown(time_t t) {
    if (t < first_ || t > last_) {
      return find_day(t);
    }
    const auto second_of_day = static_cast<int>(t - midnight_);
    day_.tm_hour = second_of_day / 3600;
    day_.tm_min = second_of_day / 60 % 60;
    day_.tm_sec = second_of_day % 60;
    return &day_;
  }

 private:
  const std::tm* find_day(time_t t);

  // The seconds of the remembered day that it can convert; none at first.
  time_t first_ = 1;
  time_t last_ = 0;
  time_t midnight_ = 0;  // when the day would begin without clock changes
  std::tm day_{};
  LocalStretch stretch_{1, 0, 0, 0, 0, nullptr};
};
