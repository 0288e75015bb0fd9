#include "platform/local_clock.hpp"

#include <algorithm>

namespace {

constexpr time_t seconds_per_day = 86400;
constexpr time_t sample_step = 3 * 3600;

bool is_same_offset(const std::tm& a, const std::tm& b) {
  return a.tm_gmtoff == b.tm_gmtoff && a.tm_isdst == b.tm_isdst && a.tm_zone == b.tm_zone;
}

bool is_constant(time_t first, time_t last) {
  std::tm reference{};
  if (localtime_r(&first, &reference) == nullptr) {
    return false;
  }
  for (time_t t = first; t < last;) {
    t = std::min(t + sample_step, last);
    std::tm tm{};
    if (localtime_r(&t, &tm) == nullptr || !is_same_offset(tm, reference)) {
      return false;
    }
  }
  return true;
}

}  // namespace

bool ConstantOffset::holds(time_t first, time_t last) {
  if (first >= first_ && last <= last_) {
    return true;
  }
  const bool follows = first >= first_ && first <= last_;
  if (!is_constant(follows ? last_ : first, last)) {
    return false;
  }
  first_ = follows ? first_ : first;
  last_ = last;
  return true;
}

const std::tm* LocalClock::find_day(time_t t) {
  if (localtime_r(&t, &day_) == nullptr) {
    return nullptr;
  }
  first_ = t - day_.tm_hour * 3600 - day_.tm_min * 60 - day_.tm_sec;
  last_ = first_ + seconds_per_day - 1;
  if (!offset_.holds(first_, last_)) {
    first_ = 1;  // a day with a clock change is asked for second by second
    last_ = 0;
  }
  return &day_;
}
