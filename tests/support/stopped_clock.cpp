// Loaded before the C library: the clock of the program stands at the second that the environment
// names in NOW. fixed_clock is built with such a clock; this is for a program that is installed.
#include <cstdlib>
#include <ctime>

// The C library has a reserved name there.
// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name)
extern "C" time_t time(time_t* result) noexcept {
  const char* now = std::getenv("NOW");
  const time_t seconds = now != nullptr ? std::strtoll(now, nullptr, 10) : 0;
  if (result != nullptr) {
    *result = seconds;
  }
  return seconds;
}
