#include "framework/system/KorObjectAllocator.h"

#include <cstdlib>
#include <new>
#include <utility>

namespace {

KorObjectAllocator::Source& TheSource() {
  static KorObjectAllocator::Source source{&std::malloc, &std::free};
  return source;
}

}  // namespace

void* KorObjectAllocator::Allocate(std::size_t size) {
  if (void* memory = TheSource().allocate(size)) return memory;
  throw std::bad_alloc();
}

void KorObjectAllocator::Free(void* memory) noexcept {
  if (memory) TheSource().free(memory);
}

KorObjectAllocator::Source KorObjectAllocator::SetSource(Source source) {
  return std::exchange(TheSource(), source);
}
