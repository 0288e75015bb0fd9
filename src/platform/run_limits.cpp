#include "platform/run_limits.hpp"

#include <sys/resource.h>

#include <algorithm>
#include <csignal>

namespace {

constexpr rlim_t most_data = 4UL * 1024 * 1024 * 1024;  // bytes
constexpr rlim_t most_cpu = 600;                        // seconds

template <typename Resource>
void lower_limit(Resource resource, rlim_t most) {
  rlimit limit{};
  if (getrlimit(resource, &limit) == 0) {
    limit.rlim_cur = std::min(limit.rlim_cur, most);
    setrlimit(resource, &limit);
  }
}

}  // namespace

void limit_run() {
  std::signal(SIGXCPU, SIG_DFL);  // whatever the parent made of it
  lower_limit(RLIMIT_CPU, most_cpu);
#ifndef __SANITIZE_ADDRESS__  // the sanitizer claims terabytes that it does not use
  lower_limit(RLIMIT_DATA, most_data);
#endif
}
