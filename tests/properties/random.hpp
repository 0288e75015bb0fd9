#pragma once

#include <cstdint>
#include <iterator>
#include <random>

/// Numbers from a seed, the same with every compiler and library.
class Random {
 public:
  explicit Random(uint64_t seed) : numbers_(seed) {}

  /// 0 to count - 1.
  uint64_t below(uint64_t count) { return numbers_() % count; }

  /// first to last, both included.
  int64_t between(int64_t first, int64_t last) {
    return first + static_cast<int64_t>(below(static_cast<uint64_t>(last - first) + 1));
  }

  /// True in `percent` of 100 calls.
  bool chance(uint64_t percent) { return below(100) < percent; }

  template <typename Choices>
  const auto& pick(const Choices& choices) {
    return *std::next(std::begin(choices), static_cast<int64_t>(below(std::size(choices))));
  }

 private:
  std::mt19937_64 numbers_;
};
