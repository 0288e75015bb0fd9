#include "platform/time/local_clock.hpp"
#include "platform/syntax/schedule_types.hpp"

#include <algorithm>

namespace {}  // namespace

const std::tm* LocalClock::find_day(time_t t) {
  constexpr time_t reach = 8 * seconds_per_day;
  if (localtime_r(&t, &day_) == nullptr) {
    return nullptr;
  }
  if (t < stretch_.first || t > stretch_.last) {
    stretch_ = {1, 0, 0, 0, 0, nullptr};  // empty, because no stretch contains a leap second
    for (const LocalStretch& stretch : local_stretches(t - reach, t + reach)) {
      if (t >= stretch.first && t <= stretch.last) {
        stretch_ = stretch;
      }
    }
  }
  midnight_ = t - day_.tm_hour * 3600 - day_.tm_min * 60 - day_.tm_sec;
  first_ = std::max(midnight_, stretch_.first);
  last_ = std::min(midnight_ + seconds_per_day - 1, stretch_.last);
  return &day_;
}
