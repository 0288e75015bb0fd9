#include <cstdlib>

#include "platform/system/clock.hpp"

time_t current_time() {
  const char* now = std::getenv("NOW");
  return now != nullptr ? std::strtoll(now, nullptr, 10) : 0;
}
