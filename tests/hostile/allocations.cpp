#include "hostile/allocations.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> allocatedBytes = 0;

}  // namespace

std::size_t orvex::test::AllocatedBytes() {
  return allocatedBytes;
}

void* operator new(std::size_t size) {
  allocatedBytes += size;
  if (void* memory = std::malloc(size)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}
