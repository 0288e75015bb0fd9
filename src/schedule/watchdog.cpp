#include "schedule/watchdog.hpp"

#include <unistd.h>

#include <csignal>

namespace {

constexpr unsigned watchdog_seconds = 60;

}  // namespace

void arm_watchdog() {
  // A parent that ignores or blocks the signal hands that on; the watchdog must bite all the same.
  std::signal(SIGALRM, SIG_DFL);
  sigset_t alarm_signal;
  sigemptyset(&alarm_signal);
  sigaddset(&alarm_signal, SIGALRM);
  sigprocmask(SIG_UNBLOCK, &alarm_signal, nullptr);
  alarm(watchdog_seconds);
}

void cancel_watchdog() {
  alarm(0);
}
