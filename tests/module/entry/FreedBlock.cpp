#include "tests/module/entry/FreedBlock.h"

#include <cstdlib>
#include <new>

namespace {

const void* g_watched = nullptr;
bool g_freed = false;

void Free(void* memory) noexcept {
  if (memory && memory == g_watched) {
    g_watched = nullptr;  // whoever gets the block next is somebody else
    g_freed = true;
  }
  std::free(memory);
}

}  // namespace

void FreedBlock::Watch(const void* block) {
  g_watched = block;
  g_freed = false;
}

bool FreedBlock::WasFreed() { return g_freed; }

void* operator new(std::size_t size) {
  if (void* memory = std::malloc(size > 0 ? size : 1)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { Free(memory); }
void operator delete(void* memory, std::size_t) noexcept { Free(memory); }
