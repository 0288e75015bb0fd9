#pragma once

#include <ctime>

/// A stretch of time in which local time keeps one offset from UTC and one daylight-saving state.
class ConstantOffset {
 public:
  /// Whether it does so from `first` to `last`. Looks at both and at every third hour between them,
  /// as clock changes lie further apart; what follows the stretch already known costs little.
  bool holds(time_t first, time_t last);

 private:
  time_t first_ = 1;
  time_t last_ = 0;
};

/// Breaks calendar times down in local time, remembering the day of the last one: on a day without
/// a clock change, hour, minute and second follow by subtraction. The results are those of
/// localtime, field by field.
class LocalClock {
 public:
  /// Null when the time has no local date. Valid until the next call.
  const std::tm* breakdown(time_t t) {
    if (t < first_ || t > last_) {
      return find_day(t);
    }
    const auto second_of_day = static_cast<int>(t - first_);
    day_.tm_hour = second_of_day / 3600;
    day_.tm_min = second_of_day / 60 % 60;
    day_.tm_sec = second_of_day % 60;
    return &day_;
  }

 private:
  const std::tm* find_day(time_t t);

  // The seconds of the remembered day; none at first.
  time_t first_ = 1;
  time_t last_ = 0;
  std::tm day_{};
  ConstantOffset offset_;
};
