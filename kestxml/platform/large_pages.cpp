#include "kestxml/platform/large_pages.h"

#include <sys/mman.h>

#include <cstdint>
#include <cstdlib>
#include <new>

namespace KestXmlLib20::platform {

// One large page more than asked for is mapped, and what stands before and behind the aligned part
// is given back.
void* AllocateLargePages(std::size_t bytes) {
  std::size_t const mapped = bytes + kLargePage;
  void* const memory =
      mmap(nullptr, mapped, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (memory == MAP_FAILED) throw std::bad_alloc();
  auto* const begin = static_cast<char*>(memory);
  std::size_t const misaligned = reinterpret_cast<std::uintptr_t>(begin) % kLargePage;
  std::size_t const before = misaligned == 0 ? 0 : kLargePage - misaligned;
  if (before != 0) munmap(begin, before);
  munmap(begin + before + bytes, mapped - before - bytes);
  madvise(begin + before, bytes, MADV_HUGEPAGE);
  return begin + before;
}

void FreeLargePages(void* pages, std::size_t bytes) noexcept {
  munmap(pages, bytes);
}

void* MallocInLargePages(std::size_t bytes) noexcept {
  if (bytes < 2 * kLargePage || bytes > SIZE_MAX - kLargePage) return std::malloc(bytes);
  std::size_t const whole = (bytes + kLargePage - 1) / kLargePage * kLargePage;
  void* const memory = std::aligned_alloc(kLargePage, whole);
  if (memory) madvise(memory, whole, MADV_HUGEPAGE);
  return memory;
}

}  // namespace KestXmlLib20::platform
