#include "lumira/engine/LargeMemory.h"

#include <new>

#ifdef __linux__
#include <sys/mman.h>
#endif

namespace lumira {
namespace {

constexpr std::size_t kHugePage = std::size_t{2} << 20;
constexpr std::size_t kCacheLine = 64;

/// One rule for both ways: the alignment follows from the size alone.
std::align_val_t AlignmentFor(std::size_t bytes) {
  return std::align_val_t{bytes >= 2 * kHugePage ? kHugePage : kCacheLine};
}

}  // namespace

void* AllocateLarge(std::size_t bytes) {
  const auto alignment = AlignmentFor(bytes);
  void* memory = ::operator new(bytes, alignment);
#ifdef __linux__
  // Advice only: where it is refused the memory works just the same.
  if (alignment == std::align_val_t{kHugePage}) madvise(memory, bytes, MADV_HUGEPAGE);
#endif
  return memory;
}

void FreeLarge(void* memory, std::size_t bytes) noexcept { ::operator delete(memory, AlignmentFor(bytes)); }

}  // namespace lumira
