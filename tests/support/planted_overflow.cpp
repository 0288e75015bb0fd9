// Reads one byte behind what it was given, for the test that the sanitizer sees the program's heap.

#include <cstdio>
#include <cstdlib>
#include <cstring>

int main(int argc, char**) {
  constexpr size_t size = 100;
  char* bytes = static_cast<char*>(std::malloc(size));
  std::memset(bytes, 0, size);
  const size_t behind = size - 1 + static_cast<size_t>(argc);
  std::printf("%d\n", *const_cast<volatile char*>(bytes + behind));
  std::free(bytes);
  return 0;
}
