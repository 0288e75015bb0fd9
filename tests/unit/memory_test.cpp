#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

// This program is linked with the allocation functions of platform/system/memory.cpp.

namespace {

int calls = 0;

TEST(Memory, AnEmptiedBlockIsNoLackOfMemory) {
  calls = 0;
  std::set_new_handler([] { ++calls; });
  void* volatile memory = std::malloc(8);
  const volatile size_t nothing = 0;
  EXPECT_EQ(std::realloc(memory, nothing), nullptr);
  std::set_new_handler(nullptr);
  EXPECT_EQ(calls, 0);
}

}  // namespace
