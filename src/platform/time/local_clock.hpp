#pragma once

#include <ctime>

#include "platform/time/local_stretches.hpp"

/// Breaks calendar times down in local time, remembering the day of the last one: as long as no
/// clock changes on it, hour, minute and second follow by subtraction. The results are those of
/// localtime, field by field.
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

  // The seconds of the remembered day for which it holds; none at first.
  time_t first_ = 1;
  time_t last_ = 0;
  time_t midnight_ = 0;  // where the day begins, were there no clock change
  std::tm day_{};
  LocalStretch stretch_{1, 0, 0, 0, 0, nullptr};
};
