#include "properties/seeds.hpp"

#include <cstdlib>

namespace {

uint64_t number_in_environment(const char* name, uint64_t otherwise) {
  const char* text = std::getenv(name);
  return text != nullptr ? std::strtoull(text, nullptr, 10) : otherwise;
}

}  // namespace

std::vector<uint64_t> property_seeds(uint64_t runs) {
  if (std::getenv("PROPERTY_SEED") != nullptr) {
    return {number_in_environment("PROPERTY_SEED", 0)};
  }
  std::vector<uint64_t> seeds(runs * number_in_environment("PROPERTY_RUNS", 1));
  for (size_t i = 0; i < seeds.size(); ++i) {
    seeds[i] = i + 1;
  }
  return seeds;
}
