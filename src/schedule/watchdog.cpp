#include "schedule/watchdog.hpp"

#include <unistd.h>

void arm_watchdog() {
  alarm(watchdog_seconds);
}

void cancel_watchdog() {
  alarm(0);
}
