#pragma once

#include <cstddef>
#include <vector>

namespace lumira {

/// Memory for arrays that are read front to back: aligned to cache lines, and in huge pages where the system
/// gives them, since a roll-up of millions of occurrences otherwise spends its time on address translation.
void* AllocateLarge(std::size_t bytes);
void FreeLarge(void* memory, std::size_t bytes) noexcept;

template <class T>
struct LargeAllocator {
  using value_type = T;
  LargeAllocator() = default;
  template <class U>
  LargeAllocator(const LargeAllocator<U>&) {}
  T* allocate(std::size_t count) { return static_cast<T*>(AllocateLarge(count * sizeof(T))); }
  void deallocate(T* memory, std::size_t count) noexcept { FreeLarge(memory, count * sizeof(T)); }
  template <class U>
  friend bool operator==(const LargeAllocator&, const LargeAllocator<U>&) {
    return true;
  }
};

template <class T>
using LargeVector = std::vector<T, LargeAllocator<T>>;

}  // namespace lumira
