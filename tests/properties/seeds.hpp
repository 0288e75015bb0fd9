#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <iostream>
#include <string>
#include <vector>

/// The seeds of a test: 1 to `runs`. PROPERTY_SEED=N in the environment leaves only N, and
/// PROPERTY_RUNS=N makes N times as many.
std::vector<uint64_t> property_seeds(uint64_t runs);

/// Calls check(seed), which returns what it found wrong, until it finds something. The seeds are
/// named as they are tried, so that a crash shows its own.
template <typename Check>
void for_each_seed(uint64_t runs, Check check) {
  std::cout << "PROPERTY_SEED";
  for (const uint64_t seed : property_seeds(runs)) {
    std::cout << ' ' << seed << std::flush;
    const std::string complaint = check(seed);
    if (!complaint.empty()) {
      FAIL() << "PROPERTY_SEED=" << seed << ": " << complaint;
    }
  }
  std::cout << '\n';
}
