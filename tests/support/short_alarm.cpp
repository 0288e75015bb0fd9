// An alarm clock that runs sixty times as fast, so that a test of the watchdog takes a second.

#include <sys/time.h>
#include <unistd.h>

extern "C" unsigned alarm(unsigned seconds) noexcept {
  constexpr unsigned speed = 60;
  const itimerval timer{{0, 0}, {seconds / speed, (seconds % speed) * (1000000 / speed)}};
  setitimer(ITIMER_REAL, &timer, nullptr);
  return 0;
}
