#include "allocations.h"

#include <atomic>
#include <cstddef>
#include <cstdlib>

namespace {
std::atomic<std::uint64_t> allocations{0};
}

namespace vesmora::bench {
std::uint64_t AllocationCount() { return allocations.load(std::memory_order_relaxed); }
}  // namespace vesmora::bench

#ifdef __GLIBC__
// These take the place of the C library's functions in the whole process.
extern "C" {

void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);

void* malloc(std::size_t size) {
  allocations.fetch_add(1, std::memory_order_relaxed);
  return __libc_malloc(size);
}

void* calloc(std::size_t count, std::size_t size) {
  allocations.fetch_add(1, std::memory_order_relaxed);
  return __libc_calloc(count, size);
}

void* realloc(void* block, std::size_t size) {
  allocations.fetch_add(1, std::memory_order_relaxed);
  return __libc_realloc(block, size);
}

}  // extern "C"
#endif
