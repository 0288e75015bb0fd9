#include "platform/system/invariant.hpp"

#include <cstdio>
#include <cstdlib>

void fail_invariant(const char* text, const char* function, int line) {
  std::fprintf(stderr, "nv8x_schedule_to_xml:%d: %s: Assertion `%s' failed.\n", line, function,
               text);
  std::abort();
}
