// Lets libFuzzer drive a target.

#include <cstddef>
#include <cstdint>

#include "fuzz/fuzz_target.hpp"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  run_target({reinterpret_cast<const char*>(data), size});
  return 0;
}
