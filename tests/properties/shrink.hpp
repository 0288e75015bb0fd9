#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

/// Leaves parts out, large runs first, for as long as fails(rest) holds.
template <typename Part, typename Fails>
std::vector<Part> shrink(std::vector<Part> parts, Fails fails) {
  for (size_t length = std::max<size_t>(parts.size() / 2, 1); length > 0; length /= 2) {
    for (size_t first = 0; first < parts.size();) {
      std::vector<Part> rest = parts;
      const auto from = rest.begin() + static_cast<std::ptrdiff_t>(first);
      rest.erase(from, from + static_cast<std::ptrdiff_t>(std::min(length, rest.size() - first)));
      if (fails(rest)) {
        parts = std::move(rest);
      } else {
        first += length;
      }
    }
  }
  return parts;
}
