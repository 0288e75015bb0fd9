#include "platform/system/clock.hpp"

time_t current_time() {
  return std::time(nullptr);
}
