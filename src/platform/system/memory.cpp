// The C library's allocation functions for the whole process, including all libraries. When memory
// runs out, they call the handler that operator new calls, which ends the run. Without this, some
// libraries crash on a null pointer, or take the file for one of an unknown type.

#include <cerrno>
#include <cstddef>
#include <new>

#ifndef NV8X_ADDRESS_SANITIZER  // it has its own functions

extern "C" {

// NOLINTBEGIN(clang-diagnostic-reserved-identifier): the C library's names
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* memory, size_t size);
void* __libc_memalign(size_t alignment, size_t size);
void __libc_free(void* memory);
// NOLINTEND(clang-diagnostic-reserved-identifier)
}

namespace {

void* or_end(void* memory) {
  if (memory == nullptr) {
    if (const std::new_handler handler = std::get_new_handler()) {
      handler();
    }
  }
  return memory;
}

}  // namespace

extern "C" {

// The parameter names are those of the C library's headers.
void* malloc(size_t size) {
  return or_end(__libc_malloc(size));
}

void* calloc(size_t nmemb, size_t size) {
  return or_end(__libc_calloc(nmemb, size));
}

void* realloc(void* ptr, size_t size) {
  void* const moved = __libc_realloc(ptr, size);
  return size == 0 ? moved : or_end(moved);  // a null pointer for 0 bytes is not a failure
}

void* aligned_alloc(size_t alignment, size_t size) {
  return or_end(__libc_memalign(alignment, size));
}

int posix_memalign(void** memptr, size_t alignment, size_t size) {
  *memptr = or_end(__libc_memalign(alignment, size));
  return *memptr == nullptr ? ENOMEM : 0;
}

void free(void* ptr) {
  __libc_free(ptr);
}

}  // extern "C"

#endif
