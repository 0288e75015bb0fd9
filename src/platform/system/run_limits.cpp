#include "platform/system/run_limits.hpp"

#include <sys/time.h>

#include <algorithm>
#include <csignal>
#include <ctime>

namespace {

/// Sends SIGPROF a tenth of a second before the run has used that many seconds. The limit uses the
/// same clock as this timer: it counts whole ticks and runs ahead of other clocks on a busy
/// machine.
void set_alarm_before(rlim_t seconds) {
  constexpr suseconds_t most_of_a_second = 900000;  // microseconds
  itimerval timer{};
  timer.it_value.tv_sec = static_cast<time_t>(std::max<rlim_t>(seconds, 1) - 1);
  timer.it_value.tv_usec = most_of_a_second;
  setitimer(ITIMER_PROF, &timer, nullptr);
}

/// The limit that is in force after the call.
template <typename Resource>
rlimit set_unless_given(Resource resource, rlim_t most) {
  rlimit limit{most, most};
  if (getrlimit(resource, &limit) == 0 && limit.rlim_cur == RLIM_INFINITY) {
    limit.rlim_cur = std::min(most, limit.rlim_max);
    setrlimit(resource, &limit);
  }
  return limit;
}

}  // namespace

void limit_memory() {
#ifndef NV8X_ADDRESS_SANITIZER  // it claims terabytes of addresses without using them
  constexpr rlim_t most_data = 4UL * 1024 * 1024 * 1024;
  set_unless_given(RLIMIT_DATA, most_data);
#endif
}

rlim_t limit_processor_time(rlim_t seconds) {
  const rlimit limit = set_unless_given(RLIMIT_CPU, seconds);
  if (limit.rlim_max <= limit.rlim_cur) {
    set_alarm_before(limit.rlim_max);
  }
  return limit.rlim_cur;
}

void set_signal_action(int signal, void (*action)(int)) {
  struct sigaction wanted = {};
  wanted.sa_handler = action;
  wanted.sa_flags = static_cast<int>(SA_RESETHAND | SA_NODEFER);
  sigemptyset(&wanted.sa_mask);
  sigaction(signal, &wanted, nullptr);
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, signal);
  sigprocmask(SIG_UNBLOCK, &signals, nullptr);
}
