#pragma once

#include <cstdio>
#include <cstdlib>
#include <string_view>

/// What every target defines: does with the bytes what the program would, and aborts when a
/// promise is broken.
void run_target(std::string_view input);

/// A promise that holds whatever the input is.
inline void require(bool holds, const char* promise) {
  if (!holds) {
    std::fprintf(stderr, "Broken: %s\n", promise);
    std::abort();
  }
}
